#pragma once
// One painted 9 x 9 board of the cell board: the value grid (`Grid`) or the
// candidate display (`PosVals`, with each box's count of missing digits beside
// it). The cells are square and as large as the widget allows; the fonts follow
// the cell size. The view keeps what each cell shows and repaints a cell only
// when that changes, so a solve that redraws after every step stays cheap.
//
// The view draws and hit-tests; what a click means is the cell board's business.
// The value grid fills the board with its palette's window colour; the
// candidate display shows the frame around it through.

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QWidget>
#include <array>
#include <utility>

namespace tessaly {

class BoardView : public QWidget {
  Q_OBJECT

 public:
  enum class Kind {
    Values,      ///< one digit a cell, centred; box frames answer clicks
    Candidates,  ///< each cell's choices laid out 1 to 9 in three rows; box counts
  };
  /// What one cell (or box count) shows.
  struct Look {
    QString text;
    QColor back, fore;  ///< back invalid: the view's own background
    bool bold = false;
    /// Values only, for a cell without text: small digits each at its place,
    /// 1 top left to 9 bottom right (the player's notes) in `notesFore`; of
    /// those, `struck` in red and struck through, and `proposed` in green and bold.
    QString notes{}, struck{}, proposed{};
    QColor notesFore{};
    friend bool operator==(const Look&, const Look&) = default;
    friend size_t qHash(const Look& look, size_t seed = 0) {
      return qHashMulti(seed, look.text, look.back.rgba(), look.fore.isValid() ? look.fore.rgba() : 0u,
                        look.fore.isValid(), look.bold, look.notes, look.struck, look.proposed,
                        look.notesFore.isValid() ? look.notesFore.rgba() : 0u);
    }
  };

  /// What a cell holds, for those who hear the board rather than see it: its
  /// accessible name is made from this (spokenCellName in Accessibility.h).
  struct CellState {
    int value = 0;  ///< 0 for an empty cell
    bool given = false;
    QString choices;  ///< the candidate digits, "147"
    QString notes;    ///< the player's notes in an empty cell, "28"
    friend bool operator==(const CellState&, const CellState&) = default;
  };

  static constexpr const char* kBoxCountHint = "The total number of choices in a box are shown on the right hand side";

  explicit BoardView(Kind kind, QWidget* parent = nullptr);

  Kind kind() const { return m_kind; }
  /// Sets what cell 0..80 shows; repaints it only when that changed.
  void setCell(int index, const Look& look);
  /// While a Batch lives, the cells and counts that change are repainted
  /// together when it ends: one update of the rectangle around them instead
  /// of one per cell, whose regions the window would have to merge.
  class Batch {
   public:
    explicit Batch(BoardView& view) : m_view(view) { ++m_view.m_batches; }
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

   private:
    BoardView& m_view;
  };
  const Look& cell(int index) const { return m_cells.at(std::size_t(index)); }
  /// Sets what cell 0..80 holds; assistive technology hears of a change.
  void setCellState(int index, const CellState& state);
  const CellState& cellState(int index) const { return m_states.at(std::size_t(index)); }
  /// The cell 0..80 a keyboard user is on: the accessible focus while the view
  /// has the keyboard. The arrow keys move it unless whoever hears keyReleased
  /// sets it meanwhile (manual play moves its selection and sets it so).
  void setCurrentCell(int index);
  int currentCell() const { return m_current; }
  /// Sets the count beside box 0..8 (candidate display only).
  void setCount(int box, const QString& text);
  const QString& count(int box) const { return m_counts.at(std::size_t(box)); }

  /// Where cell 0..80, the count of box 0..8 and box 0..8 itself are drawn.
  QRect cellRect(int index) const { return m_cellRects.at(std::size_t(index)); }
  QRect countRect(int box) const { return m_countRects.at(std::size_t(box)); }
  QRect boxRect(int box) const { return m_boxRects.at(std::size_t(box)); }
  /// The side of a cell in pixels.
  int cellSize() const { return m_cellSize; }
  /// The tool tip of cell 0..80: its cell number 1..81.
  static QString cellToolTip(int index) { return QString::number(index + 1); }
  /// The key `event` stands for on the board: a key of the main keyboard's
  /// digit row that gives no digit on this layout (its shifted sign, or the
  /// AZERTY row's unshifted one) is told as that digit's key, found from its
  /// place on the row; every other key as it comes. `platform` names the
  /// window system (QGuiApplication::platformName), whose scan codes the row
  /// is read from; where they are unknown, the key comes as it is.
  static int boardKey(const QKeyEvent& event, QStringView platform);

  /// The cell 0..80 under a point, or -1.
  int cellAt(const QPoint& point) const;
  /// The box 0..8 whose frame (inside the box, outside its cells) holds a point, or -1.
  int boxFrameAt(const QPoint& point) const;

  /// Which side of the widget the board keeps to when the widget is wider than it.
  void setHorizontalAlignment(Qt::Alignment alignment);

  /// The text of the board at `scale` times the application font's size (which
  /// sets the least size of a cell); set again when the application font changes.
  void setTextScale(double scale);
  double textScale() const { return m_textScale; }

  /// A frame drawn around the whole board in this colour; invalid for none.
  void setFrameColour(const QColor& colour);
  QColor frameColour() const { return m_frameColour; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The button released after a press on a cell; `index` is the pressed cell.
  void cellReleased(int index, Qt::MouseButton button);
  void cellDoubleClicked(int index);
  /// The pointer moved onto a cell.
  void cellHovered(int index);
  void boxFrameClicked(int box);
  void keyReleased(int key, Qt::KeyboardModifiers modifiers);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// Width and height of the whole board for a cell side.
  QSize boardSize(int cellSide) const;
  /// The cell side that a font of the widget's needs at least (minimum) or likes (hint).
  int minimumCellSide() const;
  void layOut();
  /// The outline of a box in a translucent colour.
  static void drawFrame(QPainter& painter, const QRect& box, const QColor& colour);
  /// Draws cell 0..80.
  void drawCell(QPainter& painter, int index, qreal ratio) const;
  void drawLook(QPainter& painter, const QRect& rect, const Look& look) const;
  void drawCandidates(QPainter& painter, const QRect& rect, const QString& digits) const;
  void drawNotes(QPainter& painter, const QRect& rect, const Look& look) const;
  /// Repaints that part now, or when the last Batch ends.
  void changed(const QRect& rect);
  /// Tells assistive technology about child `index` of the view (cells 0..80,
  /// then the box counts), when any listens.
  void tellAbout(int index, int type) const;

  Kind m_kind;
  Qt::Alignment m_alignment = Qt::AlignHCenter;
  std::array<Look, 81> m_cells{};
  std::array<CellState, 81> m_states{};
  int m_current = 0;
  int m_currentMoves = 0;  ///< setCurrentCell calls, to tell whether keyReleased moved the cell
  std::array<QString, 9> m_counts{};
  std::array<QRect, 81> m_cellRects{};
  std::array<QRect, 9> m_countRects{};
  std::array<QRect, 9> m_boxRects{};
  QRect m_boardRect;
  int m_cellSize = 0;
  QFont m_cellFont;   ///< the digits of the cells
  QFont m_countFont;  ///< the box counts
  int m_pressed = -1;  ///< the cell a button went down on, -1 for none
  int m_pressedBox = -1;  ///< the box frame a button went down on, -1 for none
  int m_hovered = -1;
  /// What each key held down was pressed as (by scan code): a key acts when
  /// released, as it was pressed, so that Shift let go first still notes.
  QHash<quint32, std::pair<int, Qt::KeyboardModifiers>> m_heldKeys;
  /// The drawings of the looks the cells had, each made once: laying out a
  /// cell's text costs many times copying it. They hold for the cell size,
  /// pixel ratio, palette and font named by m_drawingsFor.
  mutable QHash<Look, QPixmap> m_drawings;
  mutable QString m_drawingsFor;
  int m_batches = 0;  ///< open Batches
  QRect m_changed;    ///< what changed while a Batch was open
  QColor m_frameColour;
  double m_textScale = 1.0;
};

}  // namespace tessaly
