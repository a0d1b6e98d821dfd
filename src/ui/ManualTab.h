#pragma once
// The ManualSolve page of the mode tabs: the controls for solving by hand.

#include "ui/TabPage.h"

namespace tessaly {

class ManualTab : public TabPage {
  Q_OBJECT

 public:
  ManualTab(Session& session, CommandHost& host, QWidget* parent = nullptr);

  void applyColours(const ColourScheme& scheme) override;
};

}  // namespace tessaly
