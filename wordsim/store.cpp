#include "wordsim/store.h"

#include <algorithm>

#include "wordsim/product_objects.h"

namespace strandline::wordsim {

namespace {

String ValueIn(const std::map<String, String>& values, const String& key) {
  const auto at = values.find(key);
  return at == values.end() ? String() : at->second;
}

}  // namespace

StoreObject::StoreObject(Ref<ObjectUses> uses, const Platform& platform, Hooks& hooks, Ref<TooltipObject> tooltip,
                         const String& commonAppPath)
    : SimObject(std::move(uses)),
      mPlatform(platform),
      mHooks(hooks),
      mTooltip(std::move(tooltip)),
      mInstallPath(u"C:\\Program Files\\Quillmere\\"),
      mCommonAppPath(commonAppPath) {}

StoreObject::~StoreObject() = default;

void StoreObject::SetDocumentValue(const String& docId, const String& key, const String& text) {
  Object& map = mDocumentMaps[docId];
  if (map.IsNothing()) map = mPlatform.components->CreateDictionary();
  map.Let("Item", key, text);
}

void StoreObject::TellListeners(const String& key, const String& text) {
  // A listener may add others.
  const std::vector<Listener> listeners = mListeners;
  for (const Listener& listener : listeners) {
    if (listener.key != key) continue;
    try {
      listener.listener.Call("ValueChanged", key, text);
    } catch (const Error&) {
    }
  }
}

MemberTable StoreObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&StoreObject::TooltipMember>("tooltip"),
      Readable<&StoreObject::DocumentValueMember>("DocumentValue", 2),
      Readable<&StoreObject::DocumentValueMapExistsMember>("DocumentValueMapExists", 1),
      Writable<&StoreObject::DocumentValueMapMember>("DocumentValueMap", 1),
      Readable<&StoreObject::GlobalUserValueMember>("GlobalUserValue", 1),
      Readable<&StoreObject::GlobalUserValueWithDefaultMember>("GlobalUserValueWithDefault", 2),
      Readable<&StoreObject::GlobalValueMember>("GlobalValue", 1),
      Readable<&StoreObject::InstallPathMember>("InstallPath"),
      Readable<&StoreObject::CommonAppPathMember>("CommonAppPath"),
      Method<&StoreObject::ExecuteCommandMember>("ExecuteQLMCommand", 1, 2),
      Method<&StoreObject::AddListenerMember>("AddListener", 2),
  };
  return kMembers;
}

Variant StoreObject::InstallPathMember(const Call&) { return mInstallPath; }
Variant StoreObject::CommonAppPathMember(const Call&) { return mCommonAppPath; }
Variant StoreObject::TooltipMember(const Call&) { return Object(mTooltip); }

Variant StoreObject::GlobalUserValueMember(const Call& call) { return ValueIn(mUserValues, call.Argument(0).ToText()); }
Variant StoreObject::GlobalValueMember(const Call& call) { return ValueIn(mGlobalValues, call.Argument(0).ToText()); }

Variant StoreObject::GlobalUserValueWithDefaultMember(const Call& call) {
  const auto at = mUserValues.find(call.Argument(0).ToText());
  return at == mUserValues.end() ? call.Argument(1).ToText() : at->second;
}

Variant StoreObject::DocumentValueMember(const Call& call) {
  const String key = call.Argument(0).ToText();
  const auto at = mDocumentMaps.find(call.Argument(1).ToText());
  // Reading an absent key of a map would add it.
  if (at == mDocumentMaps.end() || !at->second.Call("Exists", key).ToBoolean()) return String();
  return at->second.Get("Item", key).ToText();
}

Variant StoreObject::DocumentValueMapExistsMember(const Call& call) {
  return mDocumentMaps.contains(call.Argument(0).ToText());
}

Variant StoreObject::DocumentValueMapMember(const Call& call) {
  const String docId = call.Argument(0).ToText();
  if (call.IsLet()) {
    const Object map = call.Value().ToObject();
    if (map.IsNothing()) Raise(errors::kObjectNotSet);
    mDocumentMaps[docId] = map;
    return {};
  }
  const auto at = mDocumentMaps.find(docId);
  return at == mDocumentMaps.end() ? Object() : at->second;
}

Variant StoreObject::ExecuteCommandMember(const Call& call) {
  const String command = call.Argument(0).ToText();
  return mHooks.productCommand ? mHooks.productCommand(command, call.Argument(1).Resolved()) : Variant();
}

// A pair is remembered once, however often it comes.
Variant StoreObject::AddListenerMember(const Call& call) {
  const Listener listener{call.Argument(0).ToText(), call.Argument(1).ToObject()};
  if (listener.listener.IsNothing()) Raise(errors::kObjectNotSet);
  const bool isKnown = std::any_of(mListeners.begin(), mListeners.end(), [&](const Listener& known) {
    return known.key == listener.key && known.listener == listener.listener;
  });
  if (!isKnown) mListeners.push_back(listener);
  return {};
}

}  // namespace strandline::wordsim
