#include "bench/loaded_word.h"

#include "wordsim/product.h"

namespace strandline::bench {

LoadedWord::LoadedWord(const Options& options)
    : mDesk(options.desk), mWord(mDesk.Services(), mDesk.Host(), mDesk.Canvas(), mDesk.Clock(), options.word) {
  for (const TextView progId : wordsim::Product::ComponentNames()) {
    mDesk.Components().Register(progId, [this, progId] { return mWord.CreateComponent(progId); });
  }
  Platform services = mDesk.Services();
  if (options.windows) {
    mWindows = options.windows(mDesk.Windows());
    services.windows = mWindows.get();
  }
  mLibrary.emplace(services);
  mMain2 = mLibrary->CreateMain2();
  Object word = mWord.Application();
  Object properties = mWord.Properties();
  Object productState = mWord.ProductState();
  String productName = u"Quillmere";
  mMain2->Initialize(word, properties, productState, productName);
}

LoadedWord::~LoadedWord() {
  mMain2 = nullptr;
  mLibrary.reset();
}

void LoadedWord::Open(const String& name) {
  mWord.Open(name);
  Boolean startedFromIcon = false;
  mMain2->HandleCreateDocument(startedFromIcon);
  mDesk.Clock().Wait(100);
}

}  // namespace strandline::bench
