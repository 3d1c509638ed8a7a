#include "platform/win32/built_in_blender.h"

#include "platform/error.h"
#include "platform/win32/mix_contexts.h"

namespace strandline::win32 {

namespace {

class BuiltInBlender final : public Dispatch {
 public:
  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    const bool isMix = member == Name("AlphaBlend");
    if (use == Use::kLet || (!isMix && member != Name("Create"))) Raise(errors::kNoSuchMember);
    if (!arguments.named.empty()) Raise(errors::kNoSuchNamedArgument);
    const std::span<const Variant> given = arguments.positional;
    if (given.size() != (isMix ? std::size_t{6} : std::size_t{2})) Raise(errors::kWrongNumberOfArguments);
    if (!isMix) {
      mWidth = given[0].ToLong();
      mHeight = given[1].ToLong();
      return {};
    }
    if (mWidth <= 0 || mHeight <= 0) Raise(errors::kInvalidArgument);
    MixContexts(given[0].ToLong(), given[3].ToLong(), given[4].ToLong(), mWidth, mHeight,
                static_cast<Single>(given[5].ToDouble()));
    return {};
  }

  // Nobody asks for it: the library keeps the object to itself.
  Long Identity() const override { return 1; }

 private:
  Long mWidth = 0;
  Long mHeight = 0;
};

}  // namespace

Object NewBuiltInBlender() { return New<BuiltInBlender>(); }

}  // namespace strandline::win32
