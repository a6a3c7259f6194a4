// What the gallery says itself, in its two languages. The texts of buttons and pages are the resource module's.
#pragma once

#include <vector>

#include "records/VoteRecords.h"

struct QuestionTexts {
  const char* name;  // UTF-8, as in the records
  std::vector<const char*> options;
};

struct CandidateTexts {
  const wchar_t* name;
  const wchar_t* answers;
};

struct GalleryTexts {
  const wchar_t* title;
  const wchar_t* welcome;  // the status line at the start

  const wchar_t* buttons;
  const wchar_t* states[6];  // of the columns: live, hot, pushed, disabled, checked, split zone
  const wchar_t* flatButtons;
  const wchar_t* flat;
  const wchar_t* flatTip;
  const wchar_t* notifier;  // the button
  const wchar_t* notifierText;
  const wchar_t* grid;
  const wchar_t* gridCells[6][3];  // null for a covered or empty cell
  const wchar_t* list;
  const wchar_t* listColumns[2];
  std::vector<CandidateTexts> candidates;
  const wchar_t* voterView;
  const wchar_t* managerView;

  const wchar_t* clicked;  // formats of the status line; %d is the control's id or the new number
  const wchar_t* zoneClicked;
  const wchar_t* stepped;
  const wchar_t* notifierClicked;
  const wchar_t* participant;  // %u

  const char* voterVote;
  const char* managerVote;
  std::vector<QuestionTexts> voterQuestions;    // single, multiple, yes or no, single with results
  std::vector<QuestionTexts> managerQuestions;  // single with results, closed multiple
};

const GalleryTexts& EnglishTexts();
const GalleryTexts& ChineseTexts();
