#include "ui/Form1.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QTabBar>
#include <QVBoxLayout>

#include "model/Session.h"

namespace tessaly {
namespace {

constexpr int kGridSize = 9;
constexpr int kBoxSize = 3;
constexpr int kValueBoxSize = 36;  ///< pixels, square
constexpr int kCellGap = 2;        ///< pixels between two value boxes
constexpr int kBoxGap = 8;         ///< extra pixels before columns and rows 4 and 7

/// Layout position of row or column 0..8: every third line starts after a
/// spacer line, so the boxes of the grid stand apart.
int layoutLine(int line) { return line + line / kBoxSize; }

}  // namespace

Form1::Form1(Session& session, QWidget* parent) : QMainWindow(parent), m_session(session) {
  setObjectName("Form1");
  setWindowTitle("Tessaly");

  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);

  m_tabs = new QTabBar(central);
  m_tabs->setObjectName("ctlTabs");
  m_tabs->addTab("AutoSolve");
  m_tabs->addTab("Create");
  m_tabs->addTab("ManualSolve");
  layout->addWidget(m_tabs);

  layout->addWidget(createGrid(), 0, Qt::AlignLeft | Qt::AlignTop);
  layout->addStretch();
  setCentralWidget(central);
}

QWidget* Form1::createGrid() {
  auto* frame = new QFrame(this);
  frame->setObjectName("Grid");
  frame->setFrameShape(QFrame::Box);
  auto* layout = new QGridLayout(frame);
  layout->setSpacing(kCellGap);
  for (int gap = kBoxSize; gap < kGridSize; gap += kBoxSize) {
    const int spacer = layoutLine(gap) - 1;
    layout->setRowMinimumHeight(spacer, kBoxGap);
    layout->setColumnMinimumWidth(spacer, kBoxGap);
  }

  for (int slot = 0; slot < kGridSize * kGridSize; ++slot) {
    const int cell = slot + 1;
    auto* box = new QLabel(frame);
    box->setObjectName(QString("Grid_%1").arg(slot));
    box->setToolTip(QString::number(cell));
    box->setAlignment(Qt::AlignCenter);
    box->setFrameShape(QFrame::Panel);
    box->setFrameShadow(QFrame::Sunken);
    box->setFixedSize(kValueBoxSize, kValueBoxSize);
    layout->addWidget(box, layoutLine(slot / kGridSize), layoutLine(slot % kGridSize));
    m_valueBoxes[static_cast<std::size_t>(slot)] = box;
  }
  return frame;
}

}  // namespace tessaly
