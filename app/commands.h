// Everything that the user can tell the main window to do.
#pragma once

#include <string>

#include "app/services.h"
#include "app/session.h"
#include "results/results_file.h"
#include "results/summary.h"

namespace quorvane {

class MainWindow;

class Commands {
 public:
  // Both outlive the commands.
  Commands(MainWindow& window, Services& services);

  // Searching (search_commands.cpp).
  void CheckInput();
  void FindWords();
  void SelectMode(WordType type);
  void Sort(SortOrder order);
  void ShowSummary();
  void ClearList();
  void CopyEntry();
  void EditList(ListKind kind);
  void RefreshListCaptions();
  void ChangeIncludeList() { EditList(ListKind::Include); }
  void ChangeExcludeList() { EditList(ListKind::Exclude); }
  void ChangeScrabbleList() { EditList(ListKind::Scrabble); }
  void ChooseWordList() { SelectMode(WordType::WordList); }
  void ChoosePalindrome() { SelectMode(WordType::Palindrome); }
  void ChooseAnagram() { SelectMode(WordType::Anagram); }
  void ChooseAnagramExact() { SelectMode(WordType::AnagramExact); }
  bool CanChooseAnagram() const;

  // Files, printing, looking up, leaving (file_commands.cpp).
  void OpenNewLexicon();
  // Loads `path`; false when the lexicon is unusable and the program has ended.
  bool LoadLexiconFile(const std::string& path);
  void ChangeSaveName();
  void SaveList();
  bool CanSave() const;
  void SaveAsLexicon();
  void Print();
  void SetUpPrinter();
  void ChangeWeblink();
  void LookUp();
  bool CanLookUp() const;
  void Exit();
  void ReportErrors(const std::string& text);

  // Options, colours, help (option_commands.cpp).
  void ToggleTimer();
  void ToggleLog();
  void ToggleWideScreen();
  void ClearLog();
  void RefreshClearLogCaption();
  void SetAutoSave(bool on);
  void ChooseColour(ColourElement element, bool fromSample = false);
  void ColourMainBack() { ChooseColour(ColourElement::MainBack); }
  void ColourMainText() { ChooseColour(ColourElement::MainText); }
  void ColourResultsBack() { ChooseColour(ColourElement::ResultsBack); }
  void ColourResultsText() { ChooseColour(ColourElement::ResultsText); }
  void ColourLettersText() { ChooseColour(ColourElement::LettersText); }
  void ColourGroupText() { ChooseColour(ColourElement::GroupText); }
  void ColourWordChoiceText() { ChooseColour(ColourElement::WordChoiceText); }
  void ColourStatusText() { ChooseColour(ColourElement::StatusText); }
  void ColourTimerText() { ChooseColour(ColourElement::TimerText); }
  void ResetColours();
  void ShowHelp();
  void ShowAbout();
  void CountByLetter();
  void CountByLength();
  void ShowWildcards();

 private:
  void PrepareAndScan(const std::string& typed);
  void ReportScan(const ScanOutcome& outcome);
  void ShowTime(const CStopWatch& watch);
  LengthRange Range() const;
  ResultsFileHeader Header() const;
  WordSequence WordsInOrder() const;
  bool WriteResults(bool automatic);
  void ReportSaveFailure(const FileError& error, bool automatic);

  MainWindow& window_;
  Services& services_;
};

}  // namespace quorvane
