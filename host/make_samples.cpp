// Writes the votes of samples/: make_samples FOLDER
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <vector>

#include "files/VoteFile.h"

namespace {

struct SampleQuestion {
  VoteItemRecord::Type type;
  u32 limit;  // of a multiple choice; 0 for as many as there are options
  const char* name;
  const char* description;
  std::vector<const char*> options;
};

struct Sample {
  const char* file;
  const char* name;
  const char* description;
  bool isSigned;
  u32 minutes;
  std::vector<SampleQuestion> questions;
};

constexpr auto kOne = VoteItemRecord::kSingleChoice;
constexpr auto kSome = VoteItemRecord::kMultipleChoice;
constexpr auto kYesNo = VoteItemRecord::kYesOrNo;

const Sample kElection = {
    "board-election.vot",
    "Election of the board, Lakeside Housing Cooperative",
    "Annual general meeting. The ballot is secret. The board takes office on the first of January and serves for two "
    "years.",
    false,
    20,
    {
        {kOne,
         0,
         "Who shall chair the board?",
         "The chair represents the cooperative together with one further member of the board.",
         {"Ingrid Solberg, deputy chair since 2022", "Paul Marchand, Birch House", "Ruth Feldman, founding member",
          "Owen Gallagher, Mill Street"}},
        {kOne,
         0,
         "Who shall keep the accounts as treasurer?",
         "",
         {"Helena Costa, accountant", "George Adeyemi, in office since 2020", "Lukas Brandt, tax adviser"}},
        {kSome,
         3,
         "Which three members shall join the board?",
         "There are three seats. Mark three names at most; the order does not matter.",
         {"Grace Whitfield", "Marek Dvorak", "Mei Tanaka", "Daniel Okafor", "Hanna Virtanen", "Pedro Almeida",
          "Elif Aydin"}},
        {kOne,
         0,
         "Who shall audit the accounts of the coming year?",
         "The auditor may not be a member of the board.",
         {"Priya Nair", "Jonas Weber", "Neither of the two"}},
        {kYesNo,
         0,
         "Shall the outgoing board be discharged for the past financial year?",
         "The auditor recommends the discharge without reservation.",
         {"Yes", "No"}},
    }};

const Sample kSurvey = {
    "team-survey.vot",
    "How we work together: survey of the development teams",
    "Twelve questions, about five minutes. The survey is anonymous, and the results are discussed in the teams next "
    "week.",
    false,
    10,
    {
        {kOne,
         0,
         "How content are you with your work at the moment?",
         "",
         {"Very content", "Rather content", "Neither nor", "Rather discontent", "Very discontent"}},
        {kSome,
         3,
         "What do you like best about your team? Choose up to three.",
         "",
         {"People help each other", "We learn a lot", "The work matters to our users", "We decide how we work",
          "Mistakes are talked about openly", "There is time to do things properly"}},
        {kSome,
         2,
         "What costs you most time without need? Choose up to two.",
         "",
         {"Meetings without a result", "Waiting for reviews", "Unclear requirements", "Slow builds and tests",
          "Switching between projects", "Searching for documentation"}},
        {kOne,
         0,
         "How many days a week would you like to work from the office?",
         "Whatever the answer, nobody will be made to come in more often than now.",
         {"None", "One", "Two", "Three", "Four or five"}},
        {kSome,
         0,
         "On which days would you come in? Mark all that suit you.",
         "",
         {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday"}},
        {kOne,
         0,
         "How long should the weekly team meeting be?",
         "",
         {"15 minutes", "30 minutes", "45 minutes", "No weekly meeting"}},
        {kYesNo, 0, "Do you know what your team wants to reach this quarter?", "", {"Yes", "No"}},
        {kSome,
         4,
         "Which topics should the training budget go to? Choose up to four.",
         "The budget covers about ten days of training for each team.",
         {"Testing", "Security", "Databases", "Accessibility", "Writing well", "Giving feedback", "Project planning",
          "Foreign languages"}},
        {kOne,
         0,
         "How often do you get feedback that helps you?",
         "",
         {"Every week", "Every month", "A few times a year", "Almost never"}},
        {kYesNo, 0, "Would you recommend us as an employer to a friend?", "", {"Yes", "No"}},
        {kSome,
         1,
         "If you could change one thing at once, which would it be?",
         "One choice only, even though it is hard.",
         {"Fewer projects at the same time", "Faster machines", "A quieter office", "More time with our users"}},
        {kOne,
         0,
         "Where shall the summer outing go?",
         "",
         {"By canoe down the river", "Hiking in the hills", "To the sea", "A cooking class in town"}},
    }};

const Sample kBallot = {
    "budget-ballot.vot",
    "Roll call on the budget and the statutes",
    "Council meeting, items 4 to 7 of the agenda. The votes are signed: the minutes name who voted how.",
    true,
    15,
    {
        {kYesNo,
         0,
         "Item 4: Shall the budget for the coming year be adopted as presented?",
         "Total of 412,000, up 3.1 percent from this year.",
         {"Yes", "No"}},
        {kYesNo,
         0,
         "Item 5: Shall the membership fee rise from 60 to 72 a year?",
         "Members on a reduced fee keep paying 30.",
         {"Yes", "No"}},
        {kYesNo,
         0,
         "Item 6: Shall paragraph 9 of the statutes allow meetings by conference call?",
         "A change of the statutes needs two thirds of the votes.",
         {"Yes", "No"}},
        {kYesNo, 0, "Item 7: Shall the council sign the contract with the new caretaker?", "", {"Yes", "No"}},
    }};

bool Write(const Sample& sample, const std::filesystem::path& folder) {
  VoteTopicRecord topic;
  topic.SetTopicName(sample.name);
  topic.SetTopicDesc(sample.description);
  topic.IsSignVote = sample.isSigned;
  topic.TimeLong = sample.minutes * 60;
  VoteItemList items;
  VoteOptionList options;
  for (const SampleQuestion& question : sample.questions) {
    VoteItemRecord item;
    item.ItemID = static_cast<u32>(items.GetCount());
    item.ItemType = question.type;
    item.SetItemName(question.name);
    item.SetItemDesc(question.description);
    if (question.type == kSome) {
      item.MultiSelLim = question.limit != 0 ? question.limit : static_cast<u32>(question.options.size());
    }
    items.AddTail(item);
    for (const char* const text : question.options) {
      VoteOptionRecord option;
      option.OptionID = static_cast<u32>(options.GetCount());
      option.ItemID = item.ItemID;
      option.SetOptionDesc(text);
      options.AddTail(option);
    }
  }
  return SaveVoteFile(topic, items, options, (folder / sample.file).u16string().c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fputs("usage: make_samples FOLDER\n", stderr);
    return 2;
  }
  for (const Sample* const sample : {&kElection, &kSurvey, &kBallot}) {
    if (!Write(*sample, argv[1])) {
      fprintf(stderr, "make_samples: %s can't be written\n", sample->file);
      return 1;
    }
  }
  return 0;
}
