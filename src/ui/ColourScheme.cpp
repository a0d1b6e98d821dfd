#include "ui/ColourScheme.h"

#include "model/FileUtil.h"
#include "model/Session.h"
#include "model/Text.h"

namespace tessaly {

bool ColourScheme::load(Session& session, const std::string& name) {
  if (name.empty()) {
    useDefaults();
    return false;
  }
  if (const auto text = readWholeFile(session.appDir + name)) {
    if (const auto entries = parse(*text)) {
      useEntries(*entries);
      session.config.ColourSchemeFile = name;
      return true;
    }
  }
  session.message("Color Scheme File: " + name + " not found, defaults will be used");
  session.config.ColourSchemeFile.clear();
  useDefaults();
  return false;
}

void ColourScheme::useDefaults() {
  m_fromFile = false;
  m_entries = Entries{};
  candidateBack = rgb(240, 240, 240);
  candidateText = rgb(1, 1, 1);
  givenBack = rgb(180, 180, 180);
  givenText = rgb(1, 1, 1);
  colour[5] = rgb(250, 250, 250);
  colour[6] = rgb(250, 10, 10);
  colour[7] = rgb(1, 1, 1);
  colour[8] = rgb(250, 250, 250);
  colour[9] = rgb(20, 160, 20);
  colour[10] = rgb(10, 10, 10);
  colour[11] = rgb(20, 160, 20);
  colour[12] = rgb(10, 10, 10);
  colour[13] = rgb(250, 1, 1);
  colour[14] = rgb(250, 250, 250);
  highlightGreen = rgb(10, 160, 10);
  highlightRed = rgb(256, 0, 0);
  windowBack = solutionsBack = puzzleFrameBack = candidateFrameBack = statusBack = kLight;
}

void ColourScheme::useEntries(const Entries& entries) {
  m_fromFile = true;
  m_entries = entries;
  // Entries 0 and 13 are never filled from a file: whatever takes them is black.
  m_entries[0] = m_entries[13] = Rgb{};
  const auto e = [&](int i) { return m_entries[std::size_t(i)]; };
  candidateBack = e(2);
  candidateText = e(13);
  givenBack = e(4);
  givenText = e(13);
  colour[5] = e(2);
  colour[6] = e(13);
  colour[7] = e(3);
  colour[8] = e(7);
  colour[9] = e(5);
  colour[10] = e(9);
  colour[11] = e(5);
  colour[12] = e(11);
  colour[13] = e(3);
  colour[14] = e(13);
  highlightGreen = e(0);
  // highlightRed keeps its value.
  windowBack = e(1);
  solutionsBack = e(6);
  puzzleFrameBack = e(8);
  candidateFrameBack = e(10);
  statusBack = e(12);
}

}  // namespace tessaly
