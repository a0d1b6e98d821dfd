#pragma once
// Sizes taken from the font and the style rather than fixed in pixels, so the
// window looks the same at every font size and screen scale.

class QLabel;
class QLineEdit;

namespace tessaly {

/// The width of a text box that shows `characters` digits in its own font and frame.
int numberBoxWidth(const QLineEdit* box, int characters);

/// Keeps room for `lines` lines of a word-wrapped label. The layouts size a
/// window without asking how tall wrapped text gets at the width it is given,
/// so a label that wraps further at the window's smallest width would squeeze
/// its neighbours.
void reserveLines(QLabel* label, int lines);

}  // namespace tessaly
