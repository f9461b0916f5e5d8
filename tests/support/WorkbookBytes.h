#pragma once

#include <zip.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelkor::test {

/// A zip archive of these parts, in memory.
inline std::string zipOf(const std::map<std::string, std::string>& parts) {
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  for (const auto& [name, text] : parts)
    zip_file_add(archive, name.c_str(), zip_source_buffer(archive, text.data(), text.size(), 0), 0);
  zip_close(archive);
  zip_source_open(target);
  std::string bytes;
  char piece[4096];
  while (const auto length = zip_source_read(target, piece, sizeof piece)) {
    if (length < 0) break;
    bytes.append(piece, static_cast<std::size_t>(length));
  }
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

inline std::string sheetOf(const std::string& rows) {
  return R"(<?xml version="1.0"?><worksheet><sheetData>)" + rows + "</sheetData></worksheet>";
}

/// The parts of a workbook with these sheets, by their names in that order.
inline std::map<std::string, std::string> workbookParts(
    const std::vector<std::pair<std::string, std::string>>& sheets) {
  const std::string relation = R"(<Relationship Type="http://x/)";
  std::map<std::string, std::string> parts{
      {"_rels/.rels", "<Relationships>" + relation + R"(officeDocument" Id="r" Target="/xl/workbook.xml"/>)" +
                          "</Relationships>"}};
  std::string list;
  std::string relations = relation + R"(sharedStrings" Id="s" Target="sharedStrings.xml"/>)" + relation +
                          R"(styles" Id="t" Target="styles.xml"/>)";
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const std::string id = "r" + std::to_string(i);
    const std::string file = "worksheets/" + id + ".xml";
    list += R"(<sheet name=")" + sheets[i].first + R"(" sheetId="1" r:id=")" + id + "\"/>";
    relations += relation + R"(worksheet" Id=")" + id + R"(" Target=")" + file + "\"/>";
    parts["xl/" + file] = sheets[i].second;
  }
  parts["xl/workbook.xml"] = "<workbook><sheets>" + list + "</sheets></workbook>";
  parts["xl/_rels/workbook.xml.rels"] = "<Relationships>" + relations + "</Relationships>";
  return parts;
}

}  // namespace zelkor::test
