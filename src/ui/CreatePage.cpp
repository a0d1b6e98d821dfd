#include "ui/CreatePage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "create/Saving.h"
#include "model/Interfaces.h"
#include "model/Session.h"
#include "model/Text.h"
#include "solver/Grader.h"
#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"
#include "ui/FrameBox.h"
#include "ui/Metrics.h"
#include "ui/ObjectNames.h"
#include "ui/RightClickButton.h"
#include "ui/TemplateDialog.h"
#include "ui/WidgetColours.h"

namespace tessaly {

namespace {

constexpr const char* kOptionProperty = "distribution";
constexpr const char* kDefaultBlanks = "45";
constexpr const char* kDefaultBatch = "5";
constexpr int kNumberBoxDigits = 4;  ///< the widest number the box is made for

const std::array<const char*, 4> kOptionCaptions = {"Mirror", "by Box", "Random", "Manual"};
const std::array<const char*, 4> kOptionHints = {
    "Blanks will be placed as mirror reflection across the diagonal",
    "Same number of blanks will be placed in each of the 9 boxes",
    "Blanks will be placed at random",
    ""};

QString qt(const std::string& text) { return QString::fromStdString(text); }

/// Resets the busy pointer however the command ends.
class BusyPointer {
 public:
  explicit BusyPointer(UserInterface& ui) : m_ui(ui) { m_ui.setBusy(true); }
  ~BusyPointer() { m_ui.setBusy(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  UserInterface& m_ui;
};

}  // namespace

QString CreatePage::distributionHint(int option) {
  return option >= 0 && option < int(kOptionHints.size()) ? QString(kOptionHints[std::size_t(option)]) : QString();
}

CreatePage::CreatePage(Session& session, CommandHost& host, UserInterface& ui, QWidget* parent)
    : TabPage(session, host, parent), m_ui(ui) {
  setObjectName(names::CreatePage);

  // The number of blanks.
  auto* blanksLabel = new QLabel("Number of blanks", this);
  m_totBlanks = new QLineEdit(kDefaultBlanks, this);
  m_totBlanks->setObjectName(names::TotBlanks);
  m_totBlanks->setFixedWidth(numberBoxWidth(m_totBlanks, kNumberBoxDigits));
  m_totBlanks->setToolTip(QString("From %1 to %2").arg(kMinBlanks).arg(kMaxBlanks));
  blanksLabel->setBuddy(m_totBlanks);

  // The distribution options.
  m_distributionFrame = new FrameBox("Distribution of Blank Cells", this);
  m_distributionFrame->setObjectName(names::DistributionFrame);
  auto* options = new QVBoxLayout(m_distributionFrame);
  for (int i = 0; i < int(m_options.size()); ++i) {
    auto* option = new QRadioButton(kOptionCaptions[std::size_t(i)], m_distributionFrame);
    option->setObjectName(QString(names::Distribution_N).arg(i));
    option->setToolTip(distributionHint(i));
    option->setProperty(kOptionProperty, i);
    option->installEventFilter(this);
    connect(option, &QRadioButton::toggled, this, [this, i](bool on) {
      if (on) showHint(i);
    });
    options->addWidget(option);
    m_options[std::size_t(i)] = option;
  }
  m_hint = new QLabel(m_distributionFrame);
  m_hint->setObjectName(names::DistributionHint);
  m_hint->setWordWrap(true);
  reserveLines(m_hint, 3);
  options->addWidget(m_hint);

  // What a new puzzle must be.
  m_unique = new QCheckBox("Only puzzles with one solution", this);
  m_unique->setObjectName(names::UniqueCheck);
  m_unique->setChecked(true);
  m_unique->setToolTip("Blanks that would let the puzzle have a second solution are filled again");
  auto* gradeLabel = new QLabel("Grade", this);
  m_targetGrade = new QComboBox(this);
  m_targetGrade->setObjectName(names::TargetGradeBox);
  m_targetGrade->addItem("Any", 0);
  for (int grade = 1; grade <= kGradeCount; ++grade)
    m_targetGrade->addItem(QString("%1 %2").arg(grade).arg(qt(std::string(gradeName(grade)))), grade);
  m_targetGrade->setToolTip(QString("Create until the puzzle has this grade (at most %1 tries)").arg(kDefaultGradeTries));
  gradeLabel->setBuddy(m_targetGrade);

  // The commands.
  m_create = new QPushButton("Create", this);
  m_create->setObjectName(names::CreateCommand);
  m_create->setToolTip("Create a new puzzle with the number of blanks and the distribution chosen");
  m_saveNew = new RightClickButton("Save new", this);
  m_saveNew->setObjectName(names::SaveNewCommand);
  m_saveNew->setToolTip("Add the puzzle shown to the current collection");
  m_autoSave = new RightClickButton("Create and save", this);
  m_autoSave->setObjectName(names::AutoSaveCommand);
  m_autoSave->setToolTip("Create puzzles and add each one to the current collection");
  auto* batchLabel = new QLabel("Number of puzzles", this);
  m_numCreate = new QLineEdit(kDefaultBatch, this);
  m_numCreate->setObjectName(names::NumCreate);
  m_numCreate->setFixedWidth(numberBoxWidth(m_numCreate, kNumberBoxDigits));
  batchLabel->setBuddy(m_numCreate);

  auto* layout = new QGridLayout(this);
  layout->addWidget(blanksLabel, 0, 0);
  layout->addWidget(m_totBlanks, 0, 1);
  layout->addWidget(m_distributionFrame, 1, 0, 1, 2);
  layout->addWidget(m_unique, 2, 0, 1, 2);
  layout->addWidget(gradeLabel, 3, 0);
  layout->addWidget(m_targetGrade, 3, 1);
  layout->addWidget(m_create, 4, 0, 1, 2);
  layout->addWidget(m_saveNew, 5, 0, 1, 2);
  layout->addWidget(batchLabel, 6, 0);
  layout->addWidget(m_numCreate, 6, 1);
  layout->addWidget(m_autoSave, 7, 0, 1, 2);
  layout->setRowStretch(8, 1);
  // The Tab key follows the rows.
  setTabOrder(m_saveNew, m_numCreate);
  setTabOrder(m_numCreate, m_autoSave);

  connect(m_create, &QPushButton::clicked, this, &CreatePage::createCommand);
  // Saving answers the release of a mouse button over the button.
  connect(m_saveNew, &RightClickButton::released, this, [this](Qt::MouseButton) { saveNewCommand(); });
  connect(m_autoSave, &RightClickButton::released, this, [this](Qt::MouseButton) { autoSaveCommand(); });

  showSettings(CreateSettings{typedBlanks(kDefaultBlanks), BlankDistribution::Mirror, std::nullopt}, kDefaultBlanks);
}

CreateSettings CreatePage::settings() const {
  CreateSettings settings;
  settings.blanks = typedBlanks(m_totBlanks->text().toStdString());
  settings.distribution = selectedDistribution();
  settings.uniqueOnly = m_unique->isChecked();
  if (const int grade = m_targetGrade->currentData().toInt(); grade > 0) settings.targetGrade = grade;
  return settings;
}

void CreatePage::showSettings(const CreateSettings& settings, const QString& blanksTyped) {
  m_totBlanks->setText(settings.blanksRewritten && settings.blanks ? QString::number(*settings.blanks) : blanksTyped);
  const int option = int(settings.distribution);
  if (option >= 0 && option < int(m_options.size())) m_options[std::size_t(option)]->setChecked(true);
  showHint(option);
}

BlankDistribution CreatePage::selectedDistribution() const {
  for (int i = 0; i < int(m_options.size()); ++i)
    if (m_options[std::size_t(i)]->isChecked()) return BlankDistribution(i);
  return BlankDistribution::Mirror;
}

void CreatePage::setCommandsEnabled(bool enabled) {
  m_create->setEnabled(enabled);
  m_saveNew->setEnabled(enabled);
  m_autoSave->setEnabled(enabled);
}

void CreatePage::showHint(int option) { m_hint->setText(distributionHint(option)); }

bool CreatePage::eventFilter(QObject* watched, QEvent* event) {
  const QVariant option = watched->property(kOptionProperty);
  if (option.isValid()) {
    // The hint follows the pointer over the options and returns to the
    // selected one when the pointer leaves.
    if (event->type() == QEvent::Enter) showHint(option.toInt());
    if (event->type() == QEvent::Leave) showHint(int(selectedDistribution()));
  }
  return QWidget::eventFilter(watched, event);
}

void CreatePage::applyColours(const ColourScheme& scheme) { paintBackground(this, scheme.statusBack); }

CreateSettings CreatePage::settingsWithTemplate() {
  CreateSettings settings = this->settings();
  if (settings.distribution != BlankDistribution::Manual) return settings;
  // The template is asked for only when the blank count will pass; a count out
  // of range is refused by the command without a pattern.
  if (!settings.blanks || *settings.blanks < kMinBlanks || *settings.blanks > kMaxBlanks) return settings;
  settings.manualTemplate = templateSource ? templateSource() : askBlankTemplate(m_ui, this);
  return settings;
}

void CreatePage::createCommand() {
  m_host.runCommand([this] {
    // The box shows the text typed again unless Mirror or by Box rewrote the count.
    const QString typed = m_totBlanks->text();
    const CreateSettings settings = settingsWithTemplate();
    CreateResult result;
    {
      BusyPointer busy(m_ui);
      result = PuzzleCreator(m_session).createCommand(settings);
    }
    showSettings(result.settings, typed);
    m_host.refreshFromSession();
  });
}

void CreatePage::saveNewCommand() {
  m_host.runCommand([this] {
    tessaly::saveNewCommand(m_session);
    m_host.refreshFromSession();
  });
}

void CreatePage::autoSaveCommand() {
  m_host.runCommand([this] {
    AutoSaveRequest request;
    request.countTyped = m_numCreate->text().toStdString();
    // A box without a number asks for no puzzles; the batch still ends with
    // its message, telling the text typed.
    request.count = leadingNumber(request.countTyped).value_or(0);
    const QString blanksTyped = m_totBlanks->text();
    request.create = settingsWithTemplate();
    // The count goes down in front of the user while the batch runs, and the
    // window keeps answering.
    request.showNumCreate = [this](const std::string& text) {
      m_numCreate->setText(qt(text));
      QCoreApplication::processEvents();
      // Each creation gives the normal pointer back when it ends.
      m_ui.setBusy(true);
    };
    AutoSaveResult result;
    {
      // The page's commands wait while the batch lets events through.
      setCommandsEnabled(false);
      BusyPointer busy(m_ui);
      result = tessaly::autoSaveCommand(m_session, request);
    }
    setCommandsEnabled(true);
    showSettings(result.create, blanksTyped);
    m_host.refreshFromSession();
  });
}

}  // namespace tessaly
