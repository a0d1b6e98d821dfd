#pragma once
// The object names of the window's widgets. They stay as they are, whatever the
// classes and fields are called: the tests find the widgets by these names,
// and they are the names the program's documentation and help page use for
// its controls (Form1 the main window, Grid_N the value boxes, PosVals_N the
// candidate labels, EventLogx the event log, pb1 the progress bar, ...).
// Names with "%1" are patterns for numbered widgets (QString(...).arg(n)); the
// board's cells (Grid_N, PosVals_N, BoxMissingCount_N) are painted, not
// widgets, and are found through CellBoard::cellAt.

namespace tessaly::names {

inline constexpr const char AboutBox[] = "AboutBox";
inline constexpr const char ApplyNudge[] = "ApplyNudge";
inline constexpr const char AutoSaveCommand[] = "AutoSaveCommand";
inline constexpr const char AutoSolveTab[] = "AutoSolveTab";
inline constexpr const char BoardSplitter[] = "BoardSplitter";
inline constexpr const char WindowContent[] = "WindowContent";
inline constexpr const char BoxMissingCount_N[] = "BoxMissingCount_%1";
inline constexpr const char BoxMissingCountCaption[] = "BoxMissingCountCaption";
inline constexpr const char CellChoice[] = "CellChoice";
inline constexpr const char CellHint[] = "CellHint";
inline constexpr const char CheckNotes[] = "CheckNotes";
inline constexpr const char NextStep[] = "NextStep";
inline constexpr const char Check3[] = "Check3";
inline constexpr const char ClearCommand[] = "ClearCommand";
inline constexpr const char ClearManual[] = "ClearManual";
inline constexpr const char CreateCommand[] = "CreateCommand";
inline constexpr const char CreatePage[] = "CreatePage";
inline constexpr const char ctlTabs[] = "ctlTabs";
inline constexpr const char Distribution_N[] = "Distribution_%1";
inline constexpr const char DistributionFrame[] = "DistributionFrame";
inline constexpr const char DistributionHint[] = "DistributionHint";
inline constexpr const char EditCommand[] = "EditCommand";
inline constexpr const char EventLogx[] = "EventLogx";
inline constexpr const char Explanation[] = "Explanation";
inline constexpr const char FileNow[] = "FileNow";
inline constexpr const char FillNotes[] = "FillNotes";
inline constexpr const char Form1[] = "Form1";
inline constexpr const char Form2[] = "Form2";
inline constexpr const char Form3[] = "Form3";
inline constexpr const char GameClock[] = "GameClock";
inline constexpr const char GetHint_N[] = "GetHint_%1";
// The puzzle frame's verdict on the puzzle's givens: "One solution", "Several
// solutions" or "No solution", and the grade; named for the tests that read them.
inline constexpr const char GradeLabel[] = "GradeLabel";
inline constexpr const char Grid[] = "Grid";
inline constexpr const char Grid_N[] = "Grid_%1";
inline constexpr const char HelpBrowser[] = "HelpBrowser";
inline constexpr const char HelpWindow[] = "HelpWindow";
inline constexpr const char HintFrame[] = "HintFrame";
inline constexpr const char HintSplitter[] = "HintSplitter";
inline constexpr const char Hints[] = "Hints";
inline constexpr const char LogManual[] = "LogManual";
inline constexpr const char LogSplitter[] = "LogSplitter";
inline constexpr const char ManualInstructions[] = "ManualInstructions";
inline constexpr const char ManualPage[] = "ManualPage";
inline constexpr const char MesLab[] = "MesLab";
inline constexpr const char mnuAbout[] = "mnuAbout";
inline constexpr const char mnuClearNotesOnPlace[] = "mnuClearNotesOnPlace";
inline constexpr const char mnuChoices[] = "mnuChoices";
inline constexpr const char mnuColx[] = "mnuColx";
inline constexpr const char mnuColx_N[] = "mnuColx_%1";
inline constexpr const char mnuColxDesktop[] = "mnuColxDesktop";
inline constexpr const char mnuColxHighContrast[] = "mnuColxHighContrast";
inline constexpr const char mnuLargerText[] = "mnuLargerText";
inline constexpr const char mnuSmallerText[] = "mnuSmallerText";
inline constexpr const char mnuNormalText[] = "mnuNormalText";
inline constexpr const char mnuCopyPuzzle[] = "mnuCopyPuzzle";
inline constexpr const char mnuEdit[] = "mnuEdit";
inline constexpr const char mnuexit[] = "mnuexit";
inline constexpr const char mnuFile[] = "mnuFile";
inline constexpr const char mnuHelp[] = "mnuHelp";
inline constexpr const char mnuHelpContents[] = "mnuHelpContents";
inline constexpr const char mnuNewCollection[] = "mnuNewCollection";
inline constexpr const char mnuOpen[] = "mnuOpen";
inline constexpr const char mnuOpenGame[] = "mnuOpenGame";
inline constexpr const char mnuRecent[] = "mnuRecent";
inline constexpr const char mnuRedo[] = "mnuRedo";
inline constexpr const char mnuRecent_N[] = "mnuRecent_%1";
inline constexpr const char mnuSaveLog[] = "mnuSaveLog";
inline constexpr const char mnuOptions[] = "mnuOptions";
inline constexpr const char mnuPastePuzzle[] = "mnuPastePuzzle";
inline constexpr const char mnuPrint[] = "mnuPrint";
inline constexpr const char mnuPrintCollection[] = "mnuPrintCollection";
inline constexpr const char mnuPrintEL2File[] = "mnuPrintEL2File";
inline constexpr const char mnuPrintEL[] = "mnuPrintEL";
inline constexpr const char mnuPrPuz2File[] = "mnuPrPuz2File";
inline constexpr const char mnuRules[] = "mnuRules";
inline constexpr const char mnuAttemptLimit[] = "mnuAttemptLimit";
inline constexpr const char mnuSave2InFile[] = "mnuSave2InFile";
inline constexpr const char mnuSaveGame[] = "mnuSaveGame";
inline constexpr const char mnuShowClock[] = "mnuShowClock";
/// The File menu's exports, one per export format, %1 its extension:
/// mnusavecsv, mnusavetxt, mnusavexls, mnusaveods.
inline constexpr const char mnusave_N[] = "mnusave%1";
inline constexpr const char mnuTechniques[] = "mnuTechniques";
inline constexpr const char mnuTellWrongMoves[] = "mnuTellWrongMoves";
inline constexpr const char mnuUndo[] = "mnuUndo";
inline constexpr const char NavButton_N[] = "NavButton_%1";
inline constexpr const char NextStepCommand[] = "NextStepCommand";
inline constexpr const char NotesMode[] = "NotesMode";
inline constexpr const char Nudge[] = "Nudge";
inline constexpr const char NumCreate[] = "NumCreate";
inline constexpr const char PauseCheck[] = "PauseCheck";
inline constexpr const char pb1[] = "pb1";
inline constexpr const char PointerReadout[] = "PointerReadout";
inline constexpr const char PossibleInCol_N[] = "PossibleInCol_%1";
inline constexpr const char PossibleInColFrame[] = "PossibleInColFrame";
inline constexpr const char PossibleInRow_N[] = "PossibleInRow_%1";
inline constexpr const char PossibleInRowFrame[] = "PossibleInRowFrame";
inline constexpr const char PosVals[] = "PosVals";
inline constexpr const char PosVals_N[] = "PosVals_%1";
inline constexpr const char PosValsFrame[] = "PosValsFrame";
inline constexpr const char PuzNumber[] = "PuzNumber";
inline constexpr const char PuzNumNow[] = "PuzNumNow";
inline constexpr const char ReplayLabel[] = "ReplayLabel";
inline constexpr const char ReplaySlider[] = "ReplaySlider";
inline constexpr const char SaveNewCommand[] = "SaveNewCommand";
inline constexpr const char SolutionsFrame[] = "SolutionsFrame";
inline constexpr const char SolutionsLabel[] = "SolutionsLabel";  // see GradeLabel
inline constexpr const char Solveit[] = "Solveit";
inline constexpr const char StartCommand[] = "StartCommand";
inline constexpr const char TargetGradeBox[] = "TargetGradeBox";  // Create: the grade to create ("Any" or 1..5)
inline constexpr const char TotBlanks[] = "TotBlanks";
inline constexpr const char UniqueCheck[] = "UniqueCheck";  // Create: only puzzles with one solution
inline constexpr const char UndoManual[] = "UndoManual";
inline constexpr const char xc_N[] = "xc_%1";

}  // namespace tessaly::names
