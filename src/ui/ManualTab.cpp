#include "ui/ManualTab.h"

#include <QCursor>
#include <QVBoxLayout>

#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/ObjectNames.h"
#include "ui/WidgetColours.h"

namespace tessaly {

ManualTab::ManualTab(Session& session, CommandHost& host, ManualPage::PaintCell paintCell, QWidget* parent)
    : TabPage(session, host, parent) {
  setObjectName(names::ManualTab);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  m_page = new ManualPage(session, std::move(paintCell), [this] { m_host.refreshFromSession(); }, this);
  m_page->commandRunner = [this](std::function<void()> command) { m_host.runCommand(std::move(command)); };
  layout->addWidget(m_page);
  layout->addStretch();
}

void ManualTab::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }
void ManualTab::refreshFromSession() { m_page->refreshFromSession(); }
void ManualTab::pageShown() { m_page->pageShown(); }
void ManualTab::valueBoxClicked(int cell, Qt::MouseButton) { m_page->onCellClicked(cell); }
void ManualTab::valueBoxDoubleClicked(int cell) { m_page->onCellDoubleClicked(cell, QCursor::pos()); }
void ManualTab::candidateLabelClicked(int cell, Qt::MouseButton button) {
  if (button == Qt::LeftButton) m_page->onCandidateClicked(cell);
}
void ManualTab::candidateLabelHovered(int cell) { m_page->onCandidateHovered(cell); }
void ManualTab::boxFrameClicked(int box) { m_page->onBoxFrameClicked(box); }
void ManualTab::keyReleased(int key, Qt::KeyboardModifiers modifiers) { m_page->onKeyReleased(key, modifiers); }

}  // namespace tessaly
