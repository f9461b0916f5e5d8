# zelkor_embed_texts(<target> <file> ...): a library of the texts, found by their file names through
# zelkor::embeddedText (base/EmbeddedText.h), so that no program looks for files of its own when it runs.
function(zelkor_embed_texts target)
  set(source ${CMAKE_BINARY_DIR}/generated/EmbeddedTexts.cpp)
  add_custom_command(OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} "-DOUTPUT=${source}" "-DFILES=${ARGN}" -P ${CMAKE_SOURCE_DIR}/cmake/WriteEmbeddedTexts.cmake
    DEPENDS ${ARGN} ${CMAKE_SOURCE_DIR}/cmake/WriteEmbeddedTexts.cmake
    VERBATIM)
  add_library(${target} STATIC ${source})
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
endfunction()
