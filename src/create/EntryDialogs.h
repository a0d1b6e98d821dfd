#pragma once
// The checks behind the two small entry dialogs: the grid entry dialog
// (`GridEntryDialog`, opened by the Edit command) that turns typed digits into a new
// puzzle, and the blank template dialog (`TemplateDialog`) that takes the pattern of
// kept and blank cells for the Manual distribution. The dialogs own the text
// boxes; everything they decide is here, so it can be tested without a window.

#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

class Session;

inline constexpr const char* kGridEntryHelp =
    "Insert numbers as 9x9 grid\nEach line should have 9 numbers\nPlace 0 for missing numbers";
inline constexpr const char* kTemplateHelp =
    "Specify a blank location by replacing an X with a blank, there must be a total of 81 blanks and X's";
inline constexpr const char* kGridEntryNotDigit =
    "Fixed numbers should be from 1 to 9\nEnter zero, dot or a space for missing numbers";
inline constexpr const char* kGridEntryTooShort = "Grid must have 81 numbers";
inline constexpr const char* kTemplateBadCharacter = "The grid must have X or a blank";
inline constexpr const char* kTemplateWrongLength = "Grid must have a total of 81 Xs and blanks";
inline constexpr const char* kNewPuzzleTitle = "New Puzzle";

/// What an OK press decided: the accepted text, or the message that refuses it.
struct EntryCheck {
  /// Grid entry: 81 digits, "0" for an empty cell. Template: 81 characters,
  /// "X" for a kept cell and "." for a blank one.
  std::string accepted;
  /// The refusal's message box text; "" when the entry was accepted.
  std::string refusal;

  bool ok() const { return refusal.empty(); }
};

// --- grid entry dialog (GridEntryDialog)

/// Checks typed grid text. Blanks, "." and "/" stand for empty cells; line
/// breaks are ignored; the first other non-digit refuses the text. More than 81
/// digits are accepted and the first 81 used.
EntryCheck checkGridEntry(std::string_view text);
/// OK of the grid entry dialog: a refusal is shown and false returned (the
/// dialog stays open); an accepted grid is applied and true returned (answer "Y").
bool gridEntryOk(Session& session, std::string_view text);
/// Help of the grid entry dialog.
void gridEntryHelp(Session& session);
/// The text the Edit command (`EditCommand`) opens the dialog with: each row's
/// nine values, "." for a blank, rows joined by line breaks.
std::string editGridText(const Session& session);

// --- Paste puzzle

inline constexpr const char* kClipboardEmpty = "The clipboard holds no puzzle to paste.";
inline constexpr const char* kClipboardNotPuzzle = "The clipboard does not hold a puzzle. ";

/// Why a pasted text is not a puzzle (one line of 81 cells or nine lines of
/// nine, ".", "0" or "-" for a blank, no digit twice in an area); empty when
/// it is one, and then `digits` holds its 81 digits, "0" for a blank.
std::string pasteRefusal(std::string_view text, std::string& digits);
/// Paste puzzle: a text that is not a puzzle is told and changes nothing;
/// otherwise, once kept (the question as for a typed grid), it becomes the
/// puzzle as an accepted grid entry does; the event log and the status line
/// then start afresh with its blank count. True when it did.
bool pastePuzzle(Session& session, std::string_view text);

// --- blank template dialog (TemplateDialog)

/// The template the dialog starts with: nine lines "XXXXXXXXX".
std::string defaultTemplateText();
/// Checks typed template text: "X" keeps a cell, a blank or "." blanks it, line
/// breaks are ignored; exactly 81 cells are needed.
EntryCheck checkTemplateEntry(std::string_view text);
/// OK of the template dialog: a refusal is shown and nothing returned; else the
/// accepted 81-character template (answer "Y").
std::optional<std::string> templateEntryOk(Session& session, std::string_view text);
/// Help of the template dialog.
void templateHelp(Session& session);

}  // namespace tessaly
