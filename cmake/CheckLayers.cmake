# cmake -DSOURCE_DIR=<src> -DLAYERS=<table> -P CheckLayers.cmake
#
# Every source file sits in a folder of the layer table, and every project
# include it makes ("layer/Header.h", a header's own "../layer/Header.h" or
# "Header.h" beside it, or <layer/...> naming a layer) names a folder of its
# own layer or of one listed before it. Anything else fails:
# an upward include, an include that names no layer, a folder not in the table.
include(${CMAKE_CURRENT_LIST_DIR}/CVSceneLayers.cmake)
get_filename_component(SOURCE_DIR ${SOURCE_DIR} ABSOLUTE)
cvscene_read_layers(${LAYERS} layers)

set(rank 0)
foreach(layer IN LISTS layers)
  set(rank_${layer} ${rank})
  math(EXPR rank "${rank} + 1")
endforeach()

file(GLOB_RECURSE files RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*.h ${SOURCE_DIR}/*.hpp ${SOURCE_DIR}/*.c
     ${SOURCE_DIR}/*.cpp)
list(SORT files)
set(errors)
set(checked 0)
foreach(file IN LISTS files)
  if(file MATCHES "^([^/]+)/")
    set(from ${CMAKE_MATCH_1})
  else()
    set(from .)
  endif()
  if(NOT DEFINED rank_${from})
    list(APPEND errors "${file}: folder '${from}' is not in the layer table")
    continue()
  endif()
  file(STRINGS ${SOURCE_DIR}/${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
  foreach(line IN LISTS includes)
    string(REGEX MATCH "include[ \t]*([\"<])([^\">]*)" _ "${line}")
    set(delimiter "${CMAKE_MATCH_1}")
    set(target "${CMAKE_MATCH_2}")
    set(to)
    if(delimiter STREQUAL "\"" AND (target MATCHES "^\\.\\./" OR NOT target MATCHES "/"))
      # Headers name their neighbours relative to themselves.
      get_filename_component(dir ${file} DIRECTORY)
      get_filename_component(resolved ${target} ABSOLUTE BASE_DIR ${SOURCE_DIR}/${dir})
      file(RELATIVE_PATH target ${SOURCE_DIR} ${resolved})
    endif()
    if(target MATCHES "^([^/]+)/")
      set(to ${CMAKE_MATCH_1})
    endif()
    if(delimiter STREQUAL "<" AND NOT DEFINED rank_${to})
      continue()  # a system or third-party header
    endif()
    math(EXPR checked "${checked} + 1")
    if(NOT to OR NOT DEFINED rank_${to})
      list(APPEND errors "${file} includes \"${target}\", which names no layer")
    elseif(rank_${to} GREATER rank_${from})
      list(APPEND errors "${file} includes ${target}: layer '${from}' may not use '${to}', which is above it")
    endif()
  endforeach()
endforeach()

list(LENGTH files nfiles)
if(errors)
  list(LENGTH errors nerrors)
  list(JOIN errors "\n  " text)
  message(FATAL_ERROR "${nerrors} problem(s) with the layer table ${LAYERS}:\n  ${text}")
endif()
message(STATUS "${checked} includes in ${nfiles} files follow the layer table")
