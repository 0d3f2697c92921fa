#pragma once

namespace parlex {

// The seven numbered vocabularies of the game: characters, triggers, items, quests
// taken, quests closed, player actions, character reactions.
enum class ListKey { N, T, I, Qi, Qo, A, R };

inline constexpr ListKey kAllListKeys[] = {ListKey::N,  ListKey::T, ListKey::I, ListKey::Qi,
                                           ListKey::Qo, ListKey::A, ListKey::R};

} // namespace parlex
