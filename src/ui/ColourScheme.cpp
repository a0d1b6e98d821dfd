#include "ui/ColourScheme.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

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
  m_fromFile = m_fromDesktop = false;
  valueBack = rgb(255, 255, 255);
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
  useDefaults();
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

double contrastRatio(const Rgb& a, const Rgb& b) {
  const auto luminance = [](const Rgb& c) {
    const auto linear = [](int channel) {
      const double v = channel / 255.0;
      return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

namespace {

/// The first of the colours that reads on `back` (4.5:1), else the one that reads best.
Rgb readableOn(const Rgb& back, std::initializer_list<Rgb> texts) {
  constexpr double kReadable = 4.5;
  Rgb best = *texts.begin();
  for (const Rgb& text : texts) {
    if (contrastRatio(text, back) >= kReadable) return text;
    if (contrastRatio(text, back) > contrastRatio(best, back)) best = text;
  }
  return best;
}

/// The colour `share` (0..1) of the way from `from` to `to`.
Rgb blend(const Rgb& from, const Rgb& to, double share) {
  const auto mix = [share](int a, int b) { return int(a + (b - a) * share + 0.5); };
  return rgb(mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue));
}

}  // namespace

void ColourScheme::useDesktop(const DesktopColours& desktop) {
  useDefaults();
  m_fromDesktop = true;
  candidateBack = valueBack = desktop.base;
  candidateText = givenText = desktop.text;
  // Givens stand a quarter of the way towards the text colour: set apart from
  // the other cells and still far from their text.
  givenBack = blend(desktop.base, desktop.text, 0.25);
  // A palette's own highlighted text may read poorly on its highlight.
  colour[8] = readableOn(desktop.highlight, {desktop.highlightedText, desktop.text, rgb(0, 0, 0), rgb(255, 255, 255)});
  colour[12] = colour[13] = desktop.highlight;
  colour[9] = colour[11] = blend(desktop.base, desktop.highlight, 0.3);
  windowBack = solutionsBack = puzzleFrameBack = candidateFrameBack = statusBack = desktop.window;
}

}  // namespace tessaly
