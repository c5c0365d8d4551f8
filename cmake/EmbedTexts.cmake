# cmake -DOUT=file.cpp -DFILES="a.csv|b.csv" -P EmbedTexts.cmake
# Writes a source defining qdf::EmbeddedText(name): each file's text by its file name. The text
# is kept as one literal per line, since a single literal may not exceed 4095 characters.
set(body "// Made by EmbedTexts.cmake from the reference tables; do not edit.\n#include <map>\n#include <string>\n#include <string_view>\n\nnamespace qdf {\n\nnamespace {\n\nstd::map<std::string_view, std::string> Texts() {\n    std::map<std::string_view, std::string> texts;\n")
string(REPLACE "|" ";" FILES "${FILES}")
foreach(file IN LISTS FILES)
  file(READ ${file} text)
  get_filename_component(name ${file} NAME)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\"" "\\\"" text "${text}")
  string(REPLACE "\r" "" text "${text}")
  string(REPLACE "\n" "\\n\";\n        t += \"" text "${text}")
  string(APPEND body "    {\n        std::string& t = texts[\"${name}\"];\n        t += \"${text}\";\n")
  string(APPEND body "    }\n")
endforeach()
string(APPEND body "    return texts;\n}\n\n}  // namespace\n\nstd::string_view EmbeddedText(std::string_view name) {\n    static const std::map<std::string_view, std::string> texts = Texts();\n    const auto it = texts.find(name);\n    return it == texts.end() ? std::string_view() : std::string_view(it->second);\n}\n\n}  // namespace qdf\n")
file(WRITE ${OUT} "${body}")
