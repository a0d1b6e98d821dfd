#pragma once
// The colour table of the window and the .sch files it comes from. Plain C++:
// the window turns these values into widget colours.
//
// A scheme file holds (at least) 12 lines "red;green;blue"; line i is scheme
// entry i. Entries 0 and 13 are never read from a file and stay black, so every
// colour value taken from them is black once a scheme is applied.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "model/SchemeFile.h"

namespace tessaly {

class Session;

/// The contrast ratio of two colours, 1 to 21, as the web's accessibility
/// guidelines define it (from their relative luminance).
double contrastRatio(const Rgb& a, const Rgb& b);

class ColourScheme {
 public:
  static constexpr int kEntries = kSchemeEntries;
  static constexpr int kFileLines = kSchemeFileLines;
  using Entries = SchemeEntries;

  /// The files of the colour menu `mnuColx`, entry 0 to 17.
  static constexpr std::array<const char*, 18> kMenuFiles = {
      "bandw.sch", "brick.sch",  "Default.sch", "dessert.sch", "egg.sch",   "lilac.sch",
      "maple.sch", "marine.sch", "plum.sch",    "pumpkin.sch", "rain.sch",  "rose.sch",
      "slate.sch", "spruce.sch", "storm.sch",   "teal.sch",    "wheat.sch", "WinClass.sch"};
  /// The high-contrast scheme: its own item below the menu's entries, which
  /// keep their numbers.
  static constexpr const char* kHighContrastFile = "highcontrast.sch";

  /// The colours of the desktop's palette that "Follow the desktop" takes.
  struct DesktopColours {
    Rgb window, windowText, base, text, highlight, highlightedText;
  };

  /// The default light and dark colours, used where no scheme value applies.
  static constexpr Rgb kLight{250, 250, 250};
  static constexpr Rgb kDark{10, 10, 10};

  ColourScheme() { useDefaults(); }

  /// Entries 1..12 from the text of a scheme file: each line split at ";", each
  /// field read by its numeric value (missing or non-numeric fields read 0).
  /// Nothing when the text has fewer than 12 lines (parseSchemeFile).
  static std::optional<Entries> parse(std::string_view text) { return parseSchemeFile(text); }

  /// Reading a scheme by name: "" gives the defaults without a message. A file of
  /// the application directory that reads gives its colours and becomes
  /// ColourSchemeFile; one that does not shows "Color Scheme File: " + name +
  /// " not found, defaults will be used", empties ColourSchemeFile and gives the
  /// defaults. True when the scheme file was used.
  bool load(Session& session, const std::string& name);

  /// The program colour values of the defaults table.
  void useDefaults();
  /// The program colour values taken from scheme entries.
  void useEntries(const Entries& entries);
  /// The program colour values taken from the desktop's palette, light or dark:
  /// the cells in its base and text colours, the frames in its window colour,
  /// the selection in its highlight; the solver's marks keep the default colours.
  void useDesktop(const DesktopColours& desktop);

  /// True while the colours come from a scheme file.
  bool fromFile() const { return m_fromFile; }
  /// True while the colours come from the desktop.
  bool fromDesktop() const { return m_fromDesktop; }
  const Entries& entries() const { return m_entries; }

  // --- the program colour values
  Rgb candidateBack;  ///< candidate label of an ordinary cell; the grid frame too
  Rgb candidateText;  ///< its text and the text of non-given value boxes
  Rgb givenBack;      ///< value box and candidate label of a given; label of a single
  Rgb givenText;
  /// Display colours 5..14 (entries below 5 unused).
  std::array<Rgb, 15> colour{};
  Rgb highlightGreen;
  Rgb highlightRed;
  Rgb valueBack;  ///< the value boxes that hold no given

  // --- frames painted directly by scheme entries 1, 6, 8, 10 and 12; the light
  // colour while no scheme is applied
  Rgb windowBack;          ///< entry 1: the main window
  Rgb solutionsBack;       ///< entry 6: the solutions frame
  Rgb puzzleFrameBack;     ///< entry 8: the puzzle frame `PuzNumber`
  Rgb candidateFrameBack;  ///< entry 10: the candidate display "Choices for cells"
  Rgb statusBack;          ///< entry 12: the tab pages and the status label

 private:
  Entries m_entries{};
  bool m_fromFile = false;
  bool m_fromDesktop = false;
};

}  // namespace tessaly
