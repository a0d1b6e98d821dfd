#pragma once
// Sizes taken from the font and the style rather than fixed in pixels, so the
// window looks the same at every font size and screen scale.

class QFont;
class QLabel;
class QLineEdit;
class QString;

namespace tessaly {

/// The width of a text box that shows `characters` digits in its own font and frame.
int numberBoxWidth(const QLineEdit* box, int characters);

/// Keeps room for `lines` lines of a word-wrapped label. The layouts size a
/// window without asking how tall wrapped text gets at the width it is given,
/// so a label that wraps further at the window's smallest width would squeeze
/// its neighbours.
void reserveLines(QLabel* label, int lines);

/// The fixed-pitch font of the texts that line digits up (the manual page's
/// summaries and move list, the entry dialogs): the desktop's monospace font,
/// or the family named by pinFixedFamily at the application font's size.
QFont fixedFont();

/// The font at `scale` times its size, whether it is given in points or pixels.
QFont scaledFont(QFont font, double scale);

/// Makes fixedFont() the given family from now on, for a program that must not
/// depend on the machine's choice of monospace font (the widget tests).
void pinFixedFamily(const QString& family);

}  // namespace tessaly
