#pragma once
// The controls of the Create tab: the number of blanks (`TotBlanks`), the
// "Distribution of Blank Cells" options, "Only puzzles with one solution"
// (`UniqueCheck`), the grade to create (`TargetGradeBox`), Create, Save new, and the batch that
// creates and saves `NumCreate` puzzles. The page reads its controls into the
// core's CreateSettings, runs the core's commands and shows what they hand
// back. It is the Create tab's page: its commands run through the window's
// CommandHost, which redraws the grid afterwards.

#include <array>
#include <functional>
#include <optional>
#include <string>

#include <QString>

#include "create/Creation.h"
#include "ui/TabPage.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tessaly {

class RightClickButton;
class UserInterface;

class CreatePage : public TabPage {
  Q_OBJECT

 public:
  /// `ui` tells the template dialog's refusals and shows the busy pointer.
  CreatePage(Session& session, CommandHost& host, UserInterface& ui, QWidget* parent = nullptr);
  void applyColours(const ColourScheme& scheme) override;

  /// What the controls hold, as the Create command reads it (no template yet).
  CreateSettings settings() const;
  /// Shows the selected option and, in `TotBlanks`, the count Mirror or by
  /// Box rewrote, else `blanksTyped` (the text typed before the command).
  void showSettings(const CreateSettings& settings, const QString& blanksTyped);

  /// Where the Manual option's template comes from; unset: the blank template
  /// dialog (`TemplateDialog`) over this page.
  std::function<std::optional<std::string>()> templateSource;

  /// The hint text of option 0..3 ("" for Manual).
  static QString distributionHint(int option);

 public slots:
  /// `CreateCommand`.
  void createCommand();
  /// `SaveNewCommand`.
  void saveNewCommand();
  /// `AutoSaveCommand`: creates and saves `NumCreate` puzzles.
  void autoSaveCommand();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The settings with the Manual option's template asked for, when it is needed.
  CreateSettings settingsWithTemplate();
  BlankDistribution selectedDistribution() const;
  void showHint(int option);
  void setCommandsEnabled(bool enabled);

  UserInterface& m_ui;

  QLineEdit* m_totBlanks = nullptr;
  QGroupBox* m_distributionFrame = nullptr;
  std::array<QRadioButton*, 4> m_options{};
  QLabel* m_hint = nullptr;
  QCheckBox* m_unique = nullptr;
  QComboBox* m_targetGrade = nullptr;
  QPushButton* m_create = nullptr;
  RightClickButton* m_saveNew = nullptr;
  RightClickButton* m_autoSave = nullptr;
  QLineEdit* m_numCreate = nullptr;
};

}  // namespace tessaly
