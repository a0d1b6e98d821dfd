#include "ui/CreateTab.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/ColourScheme.h"
#include "ui/WidgetColours.h"

namespace tessaly {

CreateTab::CreateTab(Session& session, CommandHost& host, QWidget* parent) : TabPage(session, host, parent) {
  setObjectName("CreateTab");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("Create", this));
  layout->addStretch();
}

void CreateTab::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }

}  // namespace tessaly
