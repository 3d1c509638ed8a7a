#include "addin/Main2.h"
#include "server/faces.h"
#include "server/references.h"
//
#include "strandline_com.h"

namespace strandline::server {

namespace {

const PublicClass kAbout{CLSID_Main2, IID__Main2, nullptr, L"Strandline.Main2"};

class Main2Face final : public TypedFace<_Main2> {
 public:
  explicit Main2Face(Main2& target) : TypedFace(kAbout, target), mMain(target) {}

  STDMETHODIMP Initialize(IDispatch** word, IDispatch** properties, IDispatch** productState,
                          BSTR* productName) override {
    return Guard([&] {
      RequirePointers(word, properties, productState, productName);
      Reference wordHere(word);
      Reference propertiesHere(properties);
      Reference productStateHere(productState);
      Reference productNameHere(productName);
      mMain.Initialize(wordHere.value, propertiesHere.value, productStateHere.value, productNameHere.value);
      wordHere.WriteBack();
      propertiesHere.WriteBack();
      productStateHere.WriteBack();
      productNameHere.WriteBack();
    });
  }
  STDMETHODIMP Execute(BSTR* command, BSTR* result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = nullptr;
      RequirePointers(command);
      Reference commandHere(command);
      const String answer = mMain.Execute(commandHere.value);
      commandHere.WriteBack();
      *result = NewBstr(answer);
    });
  }
  STDMETHODIMP EnableGotoQuickBookmark(VARIANT_BOOL* value) override {
    return Guard([&] {
      RequirePointers(value);
      Reference valueHere(value);
      mMain.EnableGotoQuickBookmark(valueHere.value);
      valueHere.WriteBack();
    });
  }
  STDMETHODIMP get_RibbonHandler(IDispatch** result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = nullptr;
      *result = win32::Unwrap(mMain.RibbonHandler());
    });
  }
  STDMETHODIMP ReadingMode() override { return Run(&Main2::ReadingMode); }
  STDMETHODIMP ReadingModeLayout() override { return Run(&Main2::ReadingModeLayout); }
  STDMETHODIMP CloseReadingMode() override { return Run(&Main2::CloseReadingMode); }
  STDMETHODIMP ToggleLumivex() override { return Run(&Main2::ToggleLumivex); }
  STDMETHODIMP FilePrintPreview2() override { return Run(&Main2::FilePrintPreview2); }
  STDMETHODIMP ClosePreview() override { return Run(&Main2::ClosePreview); }
  STDMETHODIMP ShrinkToolbar() override { return Run(&Main2::ShrinkToolbar); }
  STDMETHODIMP ProductNameChanged() override { return Run(&Main2::ProductNameChanged); }
  STDMETHODIMP OpenUserManual(BSTR* result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = nullptr;
      *result = NewBstr(mMain.OpenUserManual());
    });
  }
  STDMETHODIMP UseQuillmere() override { return Run(&Main2::UseQuillmere); }
  STDMETHODIMP HandleCreateDocument(VARIANT_BOOL* startedFromIcon) override {
    return Guard([&] {
      RequirePointers(startedFromIcon);
      Reference startedFromIconHere(startedFromIcon);
      mMain.HandleCreateDocument(startedFromIconHere.value);
      startedFromIconHere.WriteBack();
    });
  }
  STDMETHODIMP HandleDocumentChange() override { return Run(&Main2::HandleDocumentChange); }
  STDMETHODIMP HandleCloseDocument(IDispatch** doc, VARIANT_BOOL* result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = VARIANT_FALSE;
      RequirePointers(doc);
      Reference docHere(doc);
      const Boolean mayClose = mMain.HandleCloseDocument(docHere.value);
      docHere.WriteBack();
      *result = mayClose ? VARIANT_TRUE : VARIANT_FALSE;
    });
  }
  STDMETHODIMP ClickOnAd() override { return Run(&Main2::ClickOnAd); }
  STDMETHODIMP Quit() override { return Run(&Main2::Quit); }

 private:
  ~Main2Face() override = default;

  HRESULT Run(void (Main2::*operation)()) {
    return Guard([&] { (mMain.*operation)(); });
  }

  Main2& mMain;
};

}  // namespace

win32::Face* NewMain2Face(Main2& target) { return new Main2Face(target); }
bool Main2HasInterface(REFIID id) { return HasInterface<>(kAbout, id); }

}  // namespace strandline::server
