#pragma once
// The ManualSolve page of the mode tabs: the controls for solving by hand. It
// hands the grid's clicks and keys to the manual-play page.

#include <functional>

#include "ui/ManualPage.h"
#include "ui/TabPage.h"

namespace tessaly {

class ManualTab : public TabPage {
  Q_OBJECT

 public:
  ManualTab(Session& session, CommandHost& host, ManualPage::PaintCell paintCell, QWidget* parent = nullptr);
  void applyColours(const ColourScheme& scheme) override;
  void refreshFromSession() override;
  void pageShown() override;
  void valueBoxClicked(int cell, Qt::MouseButton button) override;
  void valueBoxDoubleClicked(int cell) override;
  void candidateLabelClicked(int cell, Qt::MouseButton button) override;
  void candidateLabelHovered(int cell) override;
  void boxFrameClicked(int box) override;
  void keyReleased(int key, Qt::KeyboardModifiers modifiers) override;
  ManualPage* page() const { return m_page; }

 private:
  ManualPage* m_page = nullptr;
};

}  // namespace tessaly
