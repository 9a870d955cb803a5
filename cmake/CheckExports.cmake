# Fails when libcvscene.so exports anything but its public API: names of
# classes and functions declared in public headers (CV..., the framework
# classes C...), the Windows-named functions hosts need, and the standard
# library's template instantiations, which the compiler exports by itself.
# Classes declared in internal headers must not show up at all.
# Usage: cmake -DLIBRARY=<.so> -DSOURCE_DIR=<src> -P CheckExports.cmake
cmake_minimum_required(VERSION 3.25)
set(host_functions AfxThrowInvalidArgException AfxThrowMemoryException
    ColorTableSize CreateRGBDIB GlobalFreeDIB DIBFromBitmap StretchDIBBlt ScaleDIB TileDIB PadDIB
    ConvertDIBtoBMP OpenDIB WriteDIBtoJPEGEx InitDLL DllCanUnloadNow SetDllLockedFlag ClearDllLockedFlag
    CreateWindowDC ReleaseWindowDC DeleteObject GdiFlush GlobalLock GlobalUnlock GlobalFree GlobalSize)

file(STRINGS ${SOURCE_DIR}/internal-headers.txt internal_headers REGEX "^[^#]")
set(internal_classes)
foreach(header IN LISTS internal_headers)
  file(STRINGS ${SOURCE_DIR}/${header} lines REGEX "^(class|struct) [A-Za-z_]+")
  foreach(line IN LISTS lines)
    if(line MATCHES ";[ ]*$")  # a forward declaration
      continue()
    endif()
    string(REGEX REPLACE "^(class|struct) (CVSCENE_API )?([A-Za-z_0-9]+).*" "\\3" name "${line}")
    list(APPEND internal_classes ${name})
  endforeach()
endforeach()

execute_process(COMMAND nm -D --defined-only -C ${LIBRARY} OUTPUT_VARIABLE out RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "nm failed on ${LIBRARY}")
endif()
string(REPLACE "\n" ";" lines "${out}")
set(bad)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" symbol "${line}")
  string(REGEX REPLACE "^(typeinfo name for|typeinfo for|vtable for|VTT for|guard variable for|non-virtual thunk to|virtual thunk to) " "" symbol "${symbol}")
  string(REGEX REPLACE "^void " "" symbol "${symbol}")
  if(symbol STREQUAL "" OR symbol MATCHES "^(std::|__gnu_cxx::|_edata$|_end$|__bss_start$)"
     OR symbol MATCHES "^[^ ]+ std::")  # a std:: member returning a type
    continue()
  endif()
  string(REGEX MATCH "^[A-Za-z_][A-Za-z_0-9]*" name "${symbol}")
  if(name IN_LIST internal_classes)
    list(APPEND bad "${symbol} (internal class)")
  elseif(NOT name MATCHES "^(CV|C[A-Z])" AND NOT name IN_LIST host_functions)
    list(APPEND bad "${symbol}")
  endif()
endforeach()
if(bad)
  list(LENGTH bad n)
  string(REPLACE ";" "\n  " listing "${bad}")
  message(FATAL_ERROR "${n} exported symbols are not public API:\n  ${listing}")
endif()
