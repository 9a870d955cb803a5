# Installs the build tree into a scratch prefix, then builds and runs a small
# consumer against it twice: through find_package(CVScene) and through
# pkg-config alone.
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
foreach(step
    "${CMAKE_COMMAND};--install;${BUILD_DIR};--prefix;${prefix}"
    "${CMAKE_COMMAND};-S;${SOURCE_DIR};-B;${WORK_DIR}/build;-DCMAKE_PREFIX_PATH=${prefix}"
    "${CMAKE_COMMAND};--build;${WORK_DIR}/build"
    "${WORK_DIR}/build/consumer")
  execute_process(COMMAND ${step} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "step failed (${rc}): ${step}\n${out}\n${err}")
  endif()
endforeach()
# The library's own headers stay out of the install.
file(STRINGS ${INTERNAL_HEADERS} internal REGEX "^[^#]")
foreach(header IN LISTS internal)
  if(EXISTS ${prefix}/include/cvscene/${header})
    message(FATAL_ERROR "internal header installed: ${header}")
  endif()
endforeach()
set(pcdir ${prefix}/lib/pkgconfig)
if(NOT EXISTS ${pcdir}/cvscene.pc)
  set(pcdir ${prefix}/lib/x86_64-linux-gnu/pkgconfig)
endif()
if(NOT EXISTS ${pcdir}/cvscene.pc)
  message(FATAL_ERROR "pkg-config file not installed")
endif()
function(pkg_config out)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pcdir} pkg-config ${ARGN} cvscene
                  RESULT_VARIABLE rc OUTPUT_VARIABLE value ERROR_VARIABLE err OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config ${ARGN} failed: ${err}")
  endif()
  set(${out} "${value}" PARENT_SCOPE)
endfunction()
pkg_config(flags --cflags --libs)
pkg_config(libdir --variable=libdir)
separate_arguments(flags UNIX_COMMAND "${flags}")
foreach(step
    "${CXX};-std=c++17;${SOURCE_DIR}/main.cpp;${flags};-Wl,-rpath,${libdir};-o;${WORK_DIR}/pc-consumer"
    "${WORK_DIR}/pc-consumer")
  execute_process(COMMAND ${step} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config consumer step failed (${rc}): ${step}\n${out}\n${err}")
  endif()
endforeach()
