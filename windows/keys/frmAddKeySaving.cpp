#include "program/StackTopics.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/SettingsNotice.h"
#include "windows/keys/frmAddKey.h"

bool frmAddKey::Form_QueryUnload(UnloadCause) {
  if (m_newTopic) return AskAndAddTopic();
  return !m_editing.Changed() || AskAndSaveKeys();
}

void frmAddKey::Form_Unload() {
  if (m_newTopic) m_shared.Switches.NewTopicName.clear();
  SetPointer(PointerShape::Busy);  // the caller restores it
}

/// What cannot be saved keeps the window open, so that it is not lost without a word.
bool frmAddKey::AskAndSaveKeys() {
  if (m_platform.prompts.Show(SaveKeysPrompt(m_topicName)) != Answer::Yes) return true;
  const KeyTable keys = m_editing.AcceptedKeys();
  const TopicSave result = SaveKeys(keys);
  if (result == TopicSave::Saved) m_shared.Topic.Keys = keys;
  return result != TopicSave::NotWritten;
}

bool frmAddKey::AskAndAddTopic() {
  const Answer answer = m_platform.prompts.Show(AddTopicAndKeysPrompt(m_topicName));
  // Who opened this window selects the new topic, and so reads its keys.
  return answer != Answer::Yes || SaveKeys(m_editing.AcceptedKeys()) != TopicSave::NotWritten;
}

TopicSave frmAddKey::SaveKeys(const KeyTable& keys) {
  const TopicSave result = SaveTopic(m_shared.Stacks, m_shared.Topics, m_platform.profile,
                                     TrimRight(m_topicName), m_shared.Topic.Fonts, keys);
  if (result == TopicSave::NoRoom) m_platform.prompts.Show(TooManyTopicsPrompt());
  ShowSettingsTrouble(*this, m_platform.profile);
  return result;
}
