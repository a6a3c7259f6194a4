#include "host/Stage.h"

#include <iterator>

namespace conference {
namespace {

const CastMember kOperator = {JW_ID(0, 500100), JW_W("Anna Berg")};
const CastMember kLatecomer = {JW_ID(4711, 7200001), JW_W("Ravi Menon")};  // dialled in: an id of both words

// The secretary comes first.
const CastMember kVoterCast[] = {
    {JW_ID(0, 500101), JW_W("Clara Novak")},        {JW_ID(0, 1200344), JW_W("Jonas Weber")},
    {JW_ID(0, 1200345), JW_W("Am\u00E9lie Roux")},  {JW_ID(0, 1200346), JW_W("Daniel Okafor")},
    {JW_ID(0, 1200347), JW_W("Ingrid Solberg")},    {JW_ID(0, 1200348), JW_W("Marek Dvorak")},
    {JW_ID(0, 1200349), JW_W("Sofia Lindqvist")},   {JW_ID(0, 1200350), JW_W("Tom\u00E1s Herrera")},
    {JW_ID(0, 1200351), JW_W("Grace Whitfield")},   {JW_ID(0, 1200352), JW_W("Yusuf Demir")},
    {JW_ID(0, 1200353), JW_W("Helena Costa")},      {JW_ID(0, 1200354), JW_W("S\u00F8ren Kjaer")},
    {JW_ID(0, 1200355), JW_W("Priya Nair")},        {JW_ID(0, 1200356), JW_W("Owen Gallagher")},
    {JW_ID(0, 1200357), JW_W("Mei Tanaka")},        {JW_ID(0, 20014001), JW_W("Paul Marchand")},
    {JW_ID(0, 20014002), JW_W("Elif Aydin")},       {JW_ID(0, 20014003), JW_W("Lukas Brandt")},
    {JW_ID(0, 20014004), JW_W("N\u00FAria Soler")}, {JW_ID(0, 20014005), JW_W("George Adeyemi")},
    {JW_ID(0, 20014006), JW_W("Hanna Virtanen")},   {JW_ID(0, 300500600), JW_W("Pedro Almeida")},
    {JW_ID(0, 300500601), JW_W("Ruth Feldman")},    {JW_ID(0, 300500602), JW_W("J\u00FCrgen Haas")},
    {JW_ID(12, 92001), JW_W("Zo\u00EB Laurent")},
};
static_assert(std::size(kVoterCast) == Stage::kVoters);

}  // namespace

Stage::Stage(InstanceFactory factory, JW_HMODULE resources, ParticipantObserver& observer)
    : m_Factory(std::move(factory)), m_hResources(resources), m_Observer(observer) {
  Enter(kOperator, false);
  for (const CastMember& member : kVoterCast) m_Voters.push_back(&Enter(member, &member == kVoterCast));
  m_Conference.GrantRight(kOperator.user, true);
  Settle();
}

Participant& Stage::LetLatecomerIn() {
  return Enter(kLatecomer, false);
}

Participant& Stage::Enter(const CastMember& member, bool linked) {
  m_People.push_back(
      std::make_unique<Participant>(member.user, JW_String(member.name), m_Factory(linked), m_hResources, m_Observer));
  Participant& person = *m_People.back();
  m_Conference.Join(person.User(), person.Name(), person.Line());
  return person;
}

void Stage::Settle() {
  for (bool moved = true; moved;) {
    moved = false;
    while (m_Conference.HandleNext()) moved = true;
    for (const auto& person : m_People) {
      while (person->ReceiveNext()) moved = true;
    }
  }
}

}  // namespace conference
