# Writes OUTPUT: a function that gives the content of each of FILES by its name.
set(cases "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME)
  file(READ ${file} text)
  string(APPEND cases "  if (name == \"${name}\") return R\"zktext(${text})zktext\";\n")
endforeach()
file(WRITE ${OUTPUT}
"#include \"base/EmbeddedText.h\"

namespace zelkor {

std::string_view embeddedText(std::string_view name) {
${cases}  return {};
}

}  // namespace zelkor
")
