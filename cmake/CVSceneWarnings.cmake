# Warnings and sanitizers, applied to our own targets only.
function(cvscene_target_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
  if(CVSCENE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()
