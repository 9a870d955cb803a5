# Installs the build tree into a scratch prefix, then configures, builds and
# runs a small find_package(CVScene) consumer against it.
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
if(NOT EXISTS ${prefix}/lib/pkgconfig/cvscene.pc AND NOT EXISTS ${prefix}/lib/x86_64-linux-gnu/pkgconfig/cvscene.pc)
  message(FATAL_ERROR "pkg-config file not installed")
endif()
