#pragma once

// The relay that the ribbon component is given, so that it can call back without holding Main2. Each call raises the
// event of like name at the sink; without a sink, no bytes and no effect.

#include "foundation/class_object.h"

namespace strandline {

class RibbonEvents final : public ClassObject {
 public:
  class Sink {
   public:
    virtual void getToolbarIconBits(Integer index, Array<Byte>& bits) = 0;
    virtual void run(const String& command) = 0;

   protected:
    ~Sink() = default;
  };

  // The sink's owner cuts it, with null, before it goes.
  void SetSink(Sink* sink) { mSink = sink; }

  Array<Byte> getToolbarIconBits(Integer index);
  void run(const String& command);

  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  void ReportVariables(Reporter&) const override {}

 private:
  Sink* mSink = nullptr;
};

}  // namespace strandline
