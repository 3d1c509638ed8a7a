#pragma once

// The closed components of the product as far as the library asks them: the four citation formatters, the error
// component and the ribbon. In the journal each bears its ProgID.

#include <string>

#include "platform/platform.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class Product;

class ComponentObject : public SimObject {
 protected:
  ComponentObject(Ref<ObjectUses> uses, TextView progId) : SimObject(std::move(uses)), mProgId(ToUtf8(progId)) {}
  std::string ObjectName() const override { return mProgId; }

 private:
  std::string mProgId;
};

struct FormatterContent {
  const char16_t* progId;
  const char16_t* displayName;
  const char16_t* outputType;  // what the style cites with unless a document says otherwise
};

class FormatterObject final : public ComponentObject {
 public:
  FormatterObject(Ref<ObjectUses> uses, const Platform& platform, const FormatterContent& content)
      : ComponentObject(std::move(uses), content.progId), mPlatform(platform), mContent(content) {}

 protected:
  MemberTable Members() const override;

 private:
  Variant GetMetaDataMember(const Call& call);
  const Platform& mPlatform;
  const FormatterContent& mContent;
};

// Answers errors as it was told beforehand, and keeps the lines of a report.
class ErrorObject final : public ComponentObject {
 public:
  ErrorObject(Ref<ObjectUses> uses, TextView progId, Product& product)
      : ComponentObject(std::move(uses), progId), mProduct(product) {}

 protected:
  MemberTable Members() const override;

 private:
  Variant InitializeMember(const Call& call);
  Variant ErrorHandlerMember(const Call& call);
  Variant ReportVariableMember(const Call& call);
  Variant ReportParameterMember(const Call& call);
  Variant ReportObjectMember(const Call& call);
  Variant ReportToFileMember(const Call& call);
  Variant OpenDumpFileMember(const Call& call);
  Variant CloseDumpFileMember(const Call& call);
  Variant ExitThreadMember(const Call& call);
  Product& mProduct;
};

// The ribbon side of the product: it holds the relay that it was given, for whoever plays user, and asks it for the
// product's icon at once.
class RibbonHandlerObject final : public ComponentObject {
 public:
  RibbonHandlerObject(Ref<ObjectUses> uses, TextView progId, Product& product);
  ~RibbonHandlerObject() override;

  const Object& Events() const { return mEvents; }
  bool IsEnabled() const { return mIsEnabled; }
  bool IsGotoQuickBookmarkEnabled() const { return mIsGotoEnabled; }
  bool IsLumivexOn() const { return mIsLumivexOn; }
  bool IsTabActive() const { return mIsTabActive; }
  const String& ProductName() const { return mProductName; }
  // Of the product's icon, as the relay gave it while this was initialised; 0 where it gave none.
  Long IconSize() const { return mIconSize; }

 protected:
  MemberTable Members() const override;

 private:
  Variant InitializeMember(const Call& call);
  Variant EnableToolbarMember(const Call& call);
  Variant EnableGotoMember(const Call& call);
  Variant UpdateLumivexMember(const Call& call);
  Variant ProductNameChangedMember(const Call& call);
  Variant ActivateTabMember(const Call& call);

  Product& mProduct;
  Object mEvents;
  String mProductName;
  Long mIconSize = 0;  // bytes
  bool mIsEnabled = false;
  bool mIsGotoEnabled = false;
  bool mIsLumivexOn = false;
  bool mIsTabActive = false;
};

}  // namespace strandline::wordsim
