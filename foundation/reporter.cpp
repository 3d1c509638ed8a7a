#include "foundation/reporter.h"

namespace strandline {

TextView Reporter::NameList::Next() {
  mName.clear();
  while (*mRest == ' ' || *mRest == ',') ++mRest;
  while (*mRest != '\0' && *mRest != ',' && *mRest != ' ') mName += static_cast<char16_t>(*mRest++);
  return mName;
}

void Reporter::Tell(TextView name, const Rect& value) {
  Variable(Concat({name, u".left"}), value.left);
  Variable(Concat({name, u".top"}), value.top);
  Variable(Concat({name, u".right"}), value.right);
  Variable(Concat({name, u".bottom"}), value.bottom);
}

void Reporter::Tell(TextView name, const Message& value) {
  Variable(Concat({name, u".hwnd"}), value.hwnd);
  Variable(Concat({name, u".message"}), value.message);
  Variable(Concat({name, u".wParam"}), value.wParam);
  Variable(Concat({name, u".lParam"}), value.lParam);
  Variable(Concat({name, u".time"}), value.time);
  Variable(Concat({name, u".pt.x"}), value.pt.x);
  Variable(Concat({name, u".pt.y"}), value.pt.y);
}

void Reporter::Tell(TextView name, const PaintStruct& value) {
  Variable(Concat({name, u".hdc"}), value.hdc);
  Variable(Concat({name, u".fErase"}), value.fErase);
  Tell(Concat({name, u".rcPaint"}), value.rcPaint);
  Variable(Concat({name, u".fRestore"}), value.fRestore);
  Variable(Concat({name, u".fIncUpdate"}), value.fIncUpdate);
  Array<Byte> reserved(0, static_cast<Long>(value.rgbReserved.size()) - 1);
  for (std::size_t i = 0; i < value.rgbReserved.size(); ++i) reserved(static_cast<Long>(i)) = value.rgbReserved[i];
  Variable(Concat({name, u".rgbReserved"}), reserved);
}

void Reporter::Tell(TextView name, const PictDesc& value) {
  Variable(Concat({name, u".cbSizeofStruct"}), value.cbSizeofStruct);
  Variable(Concat({name, u".picType"}), value.picType);
  Variable(Concat({name, u".hImage"}), value.hImage);
  Variable(Concat({name, u".xExt"}), value.xExt);
  Variable(Concat({name, u".yExt"}), value.yExt);
}

void Reporter::Tell(TextView name, const Guid& value) {
  Variable(Concat({name, u".Data1"}), value.Data1);
  Variable(Concat({name, u".Data2"}), value.Data2);
  Variable(Concat({name, u".Data3"}), value.Data3);
  Array<Byte> eight(0, 7);
  for (Long i = 0; i < 8; ++i) eight(i) = value.Data4[i];
  Variable(Concat({name, u".Data4"}), eight);
}

}  // namespace strandline
