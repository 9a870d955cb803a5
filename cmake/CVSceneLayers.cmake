# Reads the layer table (src/layers.txt): one folder of src/ a line, lowest
# first; '#' starts a comment. Sets out to the folders in table order.
function(cvscene_read_layers table out)
  file(STRINGS ${table} lines)
  set(layers)
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "#.*" "" line "${line}")
    string(STRIP "${line}" line)
    if(line)
      list(APPEND layers ${line})
    endif()
  endforeach()
  set(${out} ${layers} PARENT_SCOPE)
endfunction()
