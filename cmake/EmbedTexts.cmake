# zelkor_embed_texts(<target> <file> ...): the texts become part of the target, found by their file names through
# zelkor::embeddedText (base/EmbeddedText.h), so that no program looks for files of its own when it runs.
function(zelkor_embed_texts target)
  set(source ${CMAKE_BINARY_DIR}/generated/EmbeddedTexts.cpp)
  add_custom_command(OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} "-DOUTPUT=${source}" "-DFILES=${ARGN}" -P ${CMAKE_SOURCE_DIR}/cmake/WriteEmbeddedTexts.cmake
    DEPENDS ${ARGN} ${CMAKE_SOURCE_DIR}/cmake/WriteEmbeddedTexts.cmake
    VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
