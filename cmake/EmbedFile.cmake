# Turns a file into a C++ source that defines its bytes as an array of char.
#
# Included, it gives the function below; run as a script (cmake -P), it does the work of one call.

# Adds to `target` a source that defines the array `name` with the bytes of `file`, and, where
# `size_name` is given, that constant with their number. `header` declares both. To be called in
# the folder that made the target.
# billiard_embed(target file header name [size_name])
function(billiard_embed target file header name)
  get_filename_component(input ${file} ABSOLUTE)
  get_filename_component(base ${file} NAME)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${base}.cpp)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${input} -DOUTPUT=${output} -DHEADER=${header} -DNAME=${name}
            -DSIZE_NAME=${ARGN} -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
    DEPENDS ${input} ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
    COMMENT "Embedding ${base}"
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()

if(CMAKE_SCRIPT_MODE_FILE AND INPUT)
  file(READ ${INPUT} bytes HEX)
  string(LENGTH "${bytes}" digits)
  math(EXPR size "${digits} / 2")
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," elements "${bytes}")
  string(REGEX REPLACE "(('[^']*',)('[^']*',)('[^']*',)('[^']*',)('[^']*',)('[^']*',)('[^']*',)('[^']*',))"
                       "\\1\n" elements "${elements}")
  set(source "// Made by the build; do not edit.\n#include \"${HEADER}\"\n\n")
  string(APPEND source "const char ${NAME}[] = {\n${elements}};\n")
  if(SIZE_NAME)
    string(APPEND source "const unsigned ${SIZE_NAME} = ${size};\n")
  endif()
  file(WRITE ${OUTPUT} "${source}")
endif()
