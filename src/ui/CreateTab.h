#pragma once
// The Create page of the mode tabs: the controls for creating puzzles.

#include "ui/TabPage.h"

namespace tessaly {

class CreateTab : public TabPage {
  Q_OBJECT

 public:
  CreateTab(Session& session, CommandHost& host, QWidget* parent = nullptr);

  void applyColours(const ColourScheme& scheme) override;
};

}  // namespace tessaly
