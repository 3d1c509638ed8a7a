// What the painter hands to procedures that look at it no further.

#include "foundation/vbwProtector.h"
#include "tests/drawing/painter_fixture.h"

namespace strandline {
namespace {

// The procedures that are entered while this lives, each with its parameters.
class Entered final : public vbwProtector::ProcedureObserver {
 public:
  Entered() {
    vbwProtector::variables.vbwTraceParameters = true;
    vbwProtector::procedureObserver = this;
  }
  ~Entered() {
    vbwProtector::procedureObserver = nullptr;
    vbwProtector::variables.vbwTraceParameters = false;
  }
  Entered(const Entered&) = delete;
  Entered& operator=(const Entered&) = delete;

  void OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                   const void* parameters) override {
    struct Parameters final : Reporter {
      void Variable(TextView, const Variant& value) override { list += " " + Shown(value); }
      std::string list;
    } told;
    report(parameters, told);
    lines.push_back(ToUtf8(name.name) + told.list);
  }
  Lines Of(const std::string& procedure) const {
    Lines found;
    for (const std::string& line : lines) {
      if (line.starts_with(procedure + " ")) found.push_back(line);
    }
    return found;
  }
  Lines lines;
};

using PainterCalls = PainterTest;

TEST_F(PainterCalls, TheSharedBuffer_IsSoughtBySizeAlone) {
  Entered entered;
  Initialize();
  EXPECT_EQ(entered.Of("cachedBuffer[Get]"), Lines{"cachedBuffer[Get] 60 24 0"});
}

TEST_F(PainterCalls, ItsEnd_LeavesNoContextInThePlaceOfItsOwn) {
  Initialize();
  Entered entered;
  painter = nullptr;
  EXPECT_EQ(entered.Of("backbuffer[Let]"), Lines{"backbuffer[Let] 0"});
  EXPECT_EQ(entered.Of("background[Let]"), Lines{"background[Let] 0"});
}

}  // namespace
}  // namespace strandline
