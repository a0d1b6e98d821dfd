#include "ui/ManualTab.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/ColourScheme.h"
#include "ui/WidgetColours.h"

namespace tessaly {

ManualTab::ManualTab(Session& session, CommandHost& host, QWidget* parent) : TabPage(session, host, parent) {
  setObjectName("ManualTab");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("ManualSolve", this));
  layout->addStretch();
}

void ManualTab::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }

}  // namespace tessaly
