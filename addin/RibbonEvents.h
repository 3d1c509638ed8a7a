#pragma once

// The relay that the ribbon component is given, so that it can call back without holding Main2. Each call raises the
// event of like name at every sink, in the order of their advising; without a sink, no bytes and no effect. Arguments
// are the caller's own variables all the way: what a sink writes, the next one and the caller see.

#include "foundation/class_object.h"
#include "foundation/event_source.h"

namespace strandline {

class RibbonEvents final : public ClassObject {
 public:
  class Sink {
   public:
    // bits: the one variable that all sinks are given in turn; what the last one leaves in it is the answer.
    virtual void getToolbarIconBits(Integer& index, Array<Byte>& bits) = 0;
    virtual void run(String& command) = 0;

   protected:
    ~Sink() = default;
  };

  // The sink's owner takes it off before it goes.
  void Advise(Sink* sink) { mSinks.Advise(sink); }
  void Unadvise(Sink* sink) { mSinks.Unadvise(sink); }

  Array<Byte> getToolbarIconBits(Integer& index);
  void run(String& command);

  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  void ReportVariables(Reporter&) const override {}

 private:
  EventSource<Sink> mSinks;
};

}  // namespace strandline
