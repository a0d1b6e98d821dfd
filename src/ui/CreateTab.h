#pragma once
// The Create page of the mode tabs: the controls for creating puzzles.

#include "ui/TabPage.h"

namespace tessaly {

class CreatePage;
class UserInterface;

class CreateTab : public TabPage {
  Q_OBJECT

 public:
  CreateTab(Session& session, CommandHost& host, UserInterface& ui, QWidget* parent = nullptr);
  void applyColours(const ColourScheme& scheme) override;
  CreatePage* page() const { return m_page; }

 private:
  CreatePage* m_page = nullptr;
};

}  // namespace tessaly
