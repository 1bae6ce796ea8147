// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/WordCompletion.h"

#include <algorithm>
#include <utility>

#include "words/WordKey.h"

namespace zova {

WordCompletion::WordCompletion(WordList list) : m_list(std::move(list)), m_near(m_list) {
  m_entries.reserve(m_list.Words.size());
  for (const Word& word : m_list.Words) {
    std::string key = WordKey(word.Text);
    std::string plain = WithoutAccents(key);
    const int item = static_cast<int>(m_entries.size()) + 1;
    m_items.emplace(key, item);
    const auto [known, isNew] = m_plainItems.emplace(plain, item);
    if (!isNew) known->second = 0;
    m_entries.push_back({std::move(key), std::move(plain)});
  }
}

int WordCompletion::ItemOf(std::string_view text) const {
  const std::string key = WordKey(text);
  if (key.empty()) return 0;
  if (const auto found = m_items.find(key); found != m_items.end()) return found->second;
  const auto plain = m_plainItems.find(key);
  return plain == m_plainItems.end() ? 0 : plain->second;
}

void WordCompletion::Find(std::string_view text, WordChoices& choices) const {
  choices.Clear();
  const std::string key = WordKey(text);
  if (key.empty()) return;
  const int exact = ItemOf(text);
  if (exact > 0) choices.Items.push_back(exact);
  choices.Exact = choices.Items.size();
  const auto take = [&](auto&& fits) {
    const std::size_t before = choices.Items.size();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      const int item = static_cast<int>(i) + 1;
      if (item != exact && fits(m_entries[i])) choices.Items.push_back(item);
    }
    return choices.Items.size() - before;
  };
  const auto begins = [&](const Entry& entry) { return entry.Key.starts_with(key) || entry.Plain.starts_with(key); };
  const auto contains = [&](const Entry& entry) {
    return entry.Key.find(key) != std::string::npos || entry.Plain.find(key) != std::string::npos;
  };
  choices.Beginning = take(begins);
  choices.Containing = take([&](const Entry& entry) { return !begins(entry) && contains(entry); });
  for (const int item : m_near.Within(key)) {
    if (item != exact && !contains(m_entries[static_cast<std::size_t>(item) - 1])) choices.Items.push_back(item);
  }
}

std::string WordCompletion::NearestText(std::string_view text) const {
  std::string names;
  for (const int item : m_near.Find(WordKey(text)).Items) {
    names += (names.empty() ? "Nearest: " : ", ") + ItemName(m_list, item);
  }
  return names.empty() ? names : names + ".";
}

std::string ItemName(const WordList& list, int item) {
  std::string name = std::to_string(item);
  if (const std::string_view word = list.TextOf(item); !word.empty()) name.append(" ").append(word);
  return name;
}

std::string ItemNote(const WordList& list, int item) {
  return list.TextOf(item).empty() ? std::string() : ItemName(list, item) + ".";
}

}  // namespace zova
