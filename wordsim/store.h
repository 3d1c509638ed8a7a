#pragma once

// The product's store, as the library is handed it: named values on three levels, folders, the road for commands, and
// listeners for values that change.

#include <map>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class TooltipObject;

class StoreObject final : public SimObject {
 public:
  StoreObject(Ref<ObjectUses> uses, const Platform& platform, Hooks& hooks, Ref<TooltipObject> tooltip,
              const String& commonAppPath);
  ~StoreObject() override;

  void SetUserValue(const String& key, const String& text) { mUserValues[key] = text; }
  void SetGlobalValue(const String& key, const String& text) { mGlobalValues[key] = text; }
  void SetDocumentValue(const String& docId, const String& key, const String& text);
  // Tells every listener of that key; what a listener raises is its own matter.
  void TellListeners(const String& key, const String& text);
  // The one that came last; Nothing before any did.
  Object LatestListener() const { return mListeners.empty() ? Object() : mListeners.back().listener; }

 protected:
  std::string ObjectName() const override { return "properties"; }
  MemberTable Members() const override;

 private:
  struct Listener {
    String key;
    Object listener;
  };

  Variant InstallPathMember(const Call& call);
  Variant CommonAppPathMember(const Call& call);
  Variant TooltipMember(const Call& call);
  Variant GlobalUserValueMember(const Call& call);
  Variant GlobalUserValueWithDefaultMember(const Call& call);
  Variant GlobalValueMember(const Call& call);
  Variant DocumentValueMember(const Call& call);
  Variant DocumentValueMapExistsMember(const Call& call);
  Variant DocumentValueMapMember(const Call& call);
  Variant ExecuteCommandMember(const Call& call);
  Variant AddListenerMember(const Call& call);

  const Platform& mPlatform;
  Hooks& mHooks;
  Ref<TooltipObject> mTooltip;
  String mInstallPath;
  String mCommonAppPath;
  std::map<String, String> mUserValues;
  std::map<String, String> mGlobalValues;
  std::map<String, Object> mDocumentMaps;  // by the document's identity as text
  std::vector<Listener> mListeners;        // in the order of their coming
};

}  // namespace strandline::wordsim
