#pragma once

// The relay of the ads' events. It has two faces: outsiders, who are handed one, call NewAdvertisementsEvent and
// ValueChanged; the library calls the other two. Each call only raises the event of like name at every sink, in the
// order of their advising; what a sink writes to an argument, the next one and the caller see. There are two in a
// running system, one that Main2 hears and one that the factory hears.

#include "foundation/class_object.h"
#include "foundation/event_source.h"

namespace strandline {

class AdvertisementsCallbackStub final : public ClassObject {
 public:
  class Sink {
   public:
    virtual void ValueChanged(String& /*key*/, String& /*value*/) {}
    virtual void NewAdvertisementsChanged(Boolean /*abortedAfterFiveSeconds*/) {}
    virtual void ValueChangedWithAds(Array<Boolean>& /*ads*/, String& /*value*/) {}
    virtual void DownloadedNewAds() {}

   protected:
    ~Sink() = default;
  };

  // The sink's owner takes it off before it goes.
  void Advise(Sink* sink) { mSinks.Advise(sink); }
  void Unadvise(Sink* sink) { mSinks.Unadvise(sink); }

  // For outsiders, who reach them by name.
  void NewAdvertisementsEvent(Boolean abortedAfterFiveSeconds);
  void ValueChanged(String& key, String& value);
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;

  // Inside the library.
  void ValueChangedWithAds(Array<Boolean>& ads, String& value);
  void DownloadedNewAds();

  void ReportVariables(Reporter&) const override {}

 private:
  EventSource<Sink> mSinks;
};

}  // namespace strandline
