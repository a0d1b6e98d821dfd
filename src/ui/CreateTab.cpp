#include "ui/CreateTab.h"
#include "ui/ObjectNames.h"

#include <QVBoxLayout>

#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/CreatePage.h"
#include "ui/WidgetColours.h"

namespace tessaly {

CreateTab::CreateTab(Session& session, CommandHost& host, UserInterface& ui, QWidget* parent)
    : TabPage(session, host, parent) {
  setObjectName(names::CreateTab);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  m_page = new CreatePage(session, ui, [this] { m_host.refreshFromSession(); }, this);
  m_page->commandRunner = [this](std::function<void()> command) { m_host.runCommand(std::move(command)); };
  layout->addWidget(m_page);
  layout->addStretch();
}

void CreateTab::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }

}  // namespace tessaly
