#include "play/scene_player.h"
#include "wordsim/product.h"

namespace strandline::play {

namespace {

constexpr std::string_view kFile = "FILE|none";

}  // namespace

void ScenePlayer::ServeAdLibrary(const std::string& fileName) {
  mServesAds = fileName != "none";
  AdLibraryFile file;
  std::string wrong;
  if (mServesAds) wrong = ReadAdLibrary(mOptions.sceneName, fileName, file);
  if (wrong.empty()) wrong = mSession->ServeAdLibrary(mServesAds ? &file : nullptr);
  if (!wrong.empty()) Fail(wrong);
}

void ScenePlayer::RequireVerifier() const {
  if (!mServesAds || mSession->World().TheProduct().CanVerify()) return;
  Fail("ad libraries can't be verified here; lay the answer down before with verifier N TEXT");
}

void ScenePlayer::Ads(const Command& command) { ServeAdLibrary(command.Text(kFile)); }

void ScenePlayer::Verifier(const Command& command) {
  mSession->World().TheProduct().LayDownVerdict(static_cast<Long>(command.Number("N")), FromUtf8(command.Text("TEXT")));
}

void ScenePlayer::Library(const Command& command) {
  ServeAdLibrary(command.Text(kFile));
  RequireVerifier();
  const Object callback = mSession->AdCallback();
  if (callback.IsNothing()) {
    Fail(
        "nobody who hears of new ads is known; the desk knows it from start to quit in a Word before 2007, real "
        "windows do from when an ad that asks for a value was loaded");
  }
  callback.Call("NewAdvertisementsEvent", command.Has("aborted"));
}

}  // namespace strandline::play
