// Tells what happens in a conference, in plain sentences for a console.
//
// What somebody does is told at once. What many modules ask for or show at the same time is collected and told in one
// sentence by Flush. A verbose narrator tells every call instead.
#pragma once

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "host/ConferenceVote.h"
#include "host/Participant.h"

namespace conference {

class Narrator final : public ParticipantObserver {
 public:
  struct Style {
    bool verbose = false;
    bool color = false;
  };

  // `out` stays the caller's.
  Narrator(FILE* out, Style style) : m_pOut(out), m_Style(style) {}

  void Title(const std::string& text);
  void Scene(const std::string& name);
  // Tells what has been collected.
  void Flush();
  void Say(const std::string& sentence);
  // What went wrong.
  void Complain(const std::string& sentence);

  // While hushed, what is done and shown isn't told, but for the texts of `heard`'s module.
  void Hush(const Participant* heard) { m_pHeard = heard; }
  bool IsHushed() const { return m_pHeard != nullptr; }
  // A line of dots, one for each voter whose answers the sinks hear.
  void BeginProgress(const std::string& label);
  void EndProgress(const std::string& remark);

  // A question's options with a bar for each.
  void Table(int number, const Question& question, const QuestionCount& count);

  void OnAsked(const Participant& who, MessageKind kind, const std::string& words) override;
  void OnTold(const Participant& who, const Message& event) override;
  void OnStatusText(const Participant& who, const JW_String& text) override;
  void OnRefused(const Participant& who, const std::string& reason) override;

 private:
  // The same words from one or several participants.
  struct Chorus {
    std::string words;
    std::set<const Participant*> who;
    bool isRepeated = false;
  };

  void Line(const char* indent, const std::string& text);
  static void Join(std::vector<Chorus>& choruses, const Participant& who, const std::string& words);
  void Bar(size_t index, const std::string& label, int count, int of);
  std::string Colored(const std::string& text, u32 color) const;
  std::string Bold(const std::string& text) const;

  FILE* m_pOut;
  Style m_Style;
  int m_nScene = 0;
  const Participant* m_pHeard = nullptr;
  bool m_bInProgress = false;
  const Participant* m_pLastVoter = nullptr;
  std::vector<Chorus> m_Asked;
  std::vector<Chorus> m_Shown;
};

}  // namespace conference
