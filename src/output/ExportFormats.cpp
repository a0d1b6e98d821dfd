#include "output/ExportFormats.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "output/ExcelFile.h"
#include "output/OdsFile.h"
#include "output/TextExport.h"

namespace tessaly {

namespace {

constexpr ExportFormat kFormats[] = {
    {"CSV", "csv", writeCsvExport, "Save as CSV...", "--csv", "write the puzzle and its solution as CSV",
     "Select a CSV file to save Puzzle", "CSV Files"},
    {"TXT", "txt", writeTxtExport, "Save as TXT...", "--txt", "... as text", "Select a TXT file to save Puzzle",
     "Text Files"},
    {"XLS", "xls", writeXlsExport, "Save as XLS...", "--xls", "... as a spreadsheet",
     "Select an XLS file to save Puzzle", "Excel Files"},
    {"ODS", "ods", writeOdsExport, "Save as ODS...", "--ods", "... as an OpenDocument spreadsheet",
     "Select an ODS file to save Puzzle", "OpenDocument Spreadsheets"},
};

}  // namespace

std::span<const ExportFormat> exportFormats() { return kFormats; }

const ExportFormat* exportFormatNamed(std::string_view extension) {
  for (const ExportFormat& format : kFormats)
    if (format.extension == extension) return &format;
  return nullptr;
}

const ExportFormat* exportFormatForPath(const std::string& path) {
  std::string ext = std::filesystem::path(path).extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char ch) { return char(std::tolower(ch)); });
  if (ext.size() < 2) return nullptr;
  return exportFormatNamed(std::string_view(ext).substr(1));
}

}  // namespace tessaly
