// A whole vote, played from its creation to its report, with every count checked.
#pragma once

#include <string>

#include "host/Electorate.h"
#include "host/Narrator.h"
#include "host/Secretary.h"
#include "host/Stage.h"
#include "host/VoteDraft.h"

namespace conference {

class Play {
 public:
  // Where the saved vote and the report go.
  struct Outputs {
    std::filesystem::path vote;
    std::filesystem::path report;
  };

  // From this many questions on they are answered on one sheet, below it they are called one by one.
  static constexpr int kOneSheetFrom = 10;

  Play(Stage& stage, Narrator& narrator, const VoteDraft& draft, u32 seed);

  // True if the module's counts are the conference's own and everybody was delivered the same.
  bool Run(const Outputs& outputs);

 private:
  bool Create();
  void Introduce();
  void TryWithoutRight();
  void Start();
  void CallOneByOne();
  void AnswerOnOneSheet();
  void RefuseLateAnswer();
  void CountAndPublish();
  void HandOver();
  void LetLatecomerIn();
  void ReloadAndStop();
  void Reset();
  void Save(const Outputs& outputs);

  void AskEverybody(const Question& question);
  std::string VotersDone(const Question& question) const;
  void Submit(Participant& voter, const Question& question, const std::vector<u32>& options);
  void SetOpen(const Question& question, bool open);
  // Lets everybody work, then tells what came of it.
  void Settle();
  void CheckCounts(const char* when);
  void Check(bool holds, const std::string& complaint);
  const ConferenceVote& Vote() const { return *m_Stage.Room().Find(m_nTopicId); }

  Stage& m_Stage;
  Narrator& m_Narrator;
  Secretary m_Secretary;
  const VoteDraft& m_Draft;
  Electorate m_Electorate;
  int m_nTopicId = 0;
  int m_nFaults = 0;
};

}  // namespace conference
