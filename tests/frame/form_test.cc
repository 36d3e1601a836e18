#include <gtest/gtest.h>

#include "kvraedi/adaptadores.h"
#include "kvraedi/error.h"
#include "platform/headless/headless_toolkit.h"
#include "tests/apoyo/puertos_con_fallos.h"

namespace kvraedi {
namespace {

class Source : public ui::PickerSource {
 public:
  ui::PickerValue Resolve(std::string_view typed) override {
    ++resolved;
    if (typed == "roto") throw Error(kErrorDatabase, "prueba", "Conexión perdida");
    return {typed == "7", std::string(typed), "Siete",
            typed == "7" ? std::vector{7} : std::vector<int>{}};
  }
  std::optional<std::string> Search(std::string_view /*typed*/, ui::Form& /*owner*/) override {
    return "7";
  }
  static inline int resolved = 0;
};

struct TestForm : ui::Form {
  TestForm() : Form("frmPrueba", "Prueba") {
    SetLayout(ui::Column({ui::Row({label, first}), ui::Row({second, button}), combo, picker}));
    button.onClick = [this] { Unload(); };
    combo.onClick = [this] { ++comboClicks; };
  }
  void OnLoad() override {
    ++loads;
    if (unloadInsideLoad) Unload();
  }
  void OnUnload() override { ++unloads; }

  ui::Label label{*this, "label", "Texto"};
  ui::TextArea first{*this, "first"};
  ui::DateBox second{*this, "second"};
  ui::Button button{*this, "button", "&Cerrar"};
  ui::ComboBox combo{*this, "combo"};
  ui::Picker picker{*this, "picker"};
  bool unloadInsideLoad = false;
  int loads = 0, unloads = 0, comboClicks = 0;
};

class FormTest : public testing::Test {
 protected:
  void SetUp() override { InstalarAdaptadores({.toolkit = &toolkit}); }
  void TearDown() override {
    form.reset();
    InstalarAdaptadores({});
  }
  const ui::Form* Abierta() const { return real.OpenForm("frmPrueba"); }
  HeadlessToolkit real;
  ToolkitConFallos toolkit{real};
  std::shared_ptr<TestForm> form = std::make_shared<TestForm>();
};

TEST_F(FormTest, LoadsOnceAndUnloadsOnce) {
  int events = 0;
  form->onUnload = [&] { ++events; };
  form->Show();
  form->Hide();
  form->Show();
  EXPECT_EQ(form->loads, 1);
  EXPECT_EQ(Abierta(), form.get());
  form->Unload();
  form->Unload();
  EXPECT_EQ(form->unloads, 1);
  EXPECT_EQ(events, 1);
  form = std::make_shared<TestForm>();
  form->unloadInsideLoad = true;
  form->Show(ui::ShowMode::kModal);
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(Abierta(), nullptr);
}

TEST_F(FormTest, LivesUntilTheHandlerThatForgetsItReturns) {
  form->onUnload = [this] { form.reset(); };
  form->Show();
  form->button.Press();
  EXPECT_EQ(form, nullptr);
}

TEST_F(FormTest, AWindowThatFailsLeavesNoFormBehind) {
  toolkit.fallo.FallarEn(1);
  EXPECT_THROW(form->Show(), Error);
  EXPECT_FALSE(form->Visible());
  form->Show();
  EXPECT_EQ(Abierta(), form.get());
  toolkit.fallo.FallarEn(1);
  EXPECT_THROW(form->Unload(), Error);
  EXPECT_FALSE(form->Loaded());
  form = std::make_shared<TestForm>();
  form->Show();
  toolkit.fallo.FallarEn(1);
  form.reset();
  EXPECT_TRUE(toolkit.fallo.Disparado()) << "a destructor does not raise";
}

TEST_F(FormTest, TheToolkitThatOpenedTheWindowClosesIt) {
  HeadlessToolkit otro;
  form->Show();
  InstalarAdaptadores({});
  form.reset();
  EXPECT_EQ(Abierta(), nullptr);
  InstalarAdaptadores({.toolkit = &toolkit});
  form = std::make_shared<TestForm>();
  form->Show();
  InstalarAdaptadores({.toolkit = &otro});
  form->Show();
  EXPECT_EQ(Abierta(), nullptr);
  EXPECT_EQ(otro.OpenForm("frmPrueba"), form.get());
  form->Unload();
  InstalarAdaptadores({});
  try {
    ui::CurrentToolkit();
    FAIL();
  } catch (const Error& error) {
    EXPECT_NE(error.Description().find("toolkit"), std::string::npos);
  }
}

TEST_F(FormTest, TheUserReachesOnlyWhatIsEnabledAndVisible) {
  form->FocusNext(form->first);
  EXPECT_EQ(form->ActiveControl(), &form->second);
  form->button.SetEnabled(false);
  form->FocusNext(form->second);
  EXPECT_EQ(form->ActiveControl(), &form->combo);
  form->FocusNext(form->picker);
  EXPECT_EQ(form->ActiveControl(), &form->first) << "labels are passed over, the end wraps";
  form->first.SetEnabled(false);
  form->first.Type("x");
  form->button.SetEnabled(true);
  form->button.SetVisible(false);
  form->Show();
  form->button.Press();
  EXPECT_EQ(form->first.Text(), "");
  EXPECT_TRUE(form->Loaded());
}

TEST_F(FormTest, CombosAreChosenByUserAndProgram) {
  EXPECT_EQ(form->combo.Text(), "");
  EXPECT_EQ(form->combo.Data(), 0);
  form->combo.AddItem("a", 34);
  form->combo.AddItem("b", -1);
  form->combo.AddItem("a", 5);
  const struct {
    std::function<void(ui::ComboBox&)> choice;
    int index, clicks;
  } cases[] = {{[](auto& combo) { combo.SetListIndex(0); }, 0, 1},
               {[](auto& combo) { combo.SetListIndex(0); }, 0, 1},
               {[](auto& combo) { combo.Choose(0); }, 0, 2},
               {[](auto& combo) { combo.Choose(5); }, 0, 2},
               {[](auto& combo) { combo.SelectData(5); }, 2, 3},
               {[](auto& combo) { combo.SelectData(6), combo.SelectText("c"); }, 2, 3},
               {[](auto& combo) { combo.SelectText("a"); }, 0, 4}};
  for (const auto& [choice, index, clicks] : cases) {
    choice(form->combo);
    EXPECT_EQ(form->combo.ListIndex(), index);
    EXPECT_EQ(form->comboClicks, clicks);
  }
  EXPECT_EQ(form->combo.Data(), 34);
}

TEST_F(FormTest, FieldsKeepWhatIsTypedInTheirOwnWay) {
  const std::pair<const char*, const char*> fechas[] = {{"01032024", "01/03/2024"},
                                                        {"01/03/2024", "01/03/2024"},
                                                        {"//", ""},
                                                        {"__/__/____", ""},
                                                        {"", ""},
                                                        {"1/3", "1/3"}};
  for (const auto& [typed, text] : fechas) {
    form->second.Type(typed);
    EXPECT_EQ(form->second.Text(), text);
  }
  const std::pair<const char*, const char*> textos[] = {
      {"años", "añoS"},           {"x\r\nañoS", "X\r\nañoS"}, {"", ""},
      {"ñandú 3÷b", "ÑANDÚ 3÷B"}, {"ÑANDè 3÷B", "ÑANDÈ 3÷B"}, {"ÑANDÈ 3÷BBb", "ÑANDÈ 3÷BBB"},
      {"ÑANDÈ", "ÑANDÈ"},         {"ÑANDÈÿ€", "ÑANDÈÿ€"}};
  form->first.SetUpperCase(true);
  form->first.SetText("año");
  for (const auto& [typed, text] : textos) {
    form->first.Type(typed);
    EXPECT_EQ(form->first.Text(), text);
  }
  form->first.SetReadOnly(true);
  form->first.Type("nada");
  EXPECT_EQ(form->first.Text(), "ÑANDÈÿ€");
}

TEST_F(FormTest, PickerLooksATextUpOnceAndTellsFailures) {
  form->picker.SetSource(std::make_unique<Source>());
  form->picker.Type("7");
  EXPECT_TRUE(form->picker.Valid());
  EXPECT_EQ(form->picker.Code(), 7);
  EXPECT_EQ(form->picker.Code(3), 0);
  form->picker.PressEnter();
  EXPECT_EQ(Source::resolved, 1);
  form->picker.Type("roto");
  EXPECT_THROW(form->picker.Valid(), Error);
  form->picker.Search();
  EXPECT_EQ(form->picker.Text(), "7");
  EXPECT_EQ(form->picker.Description(), "Siete");
  form->picker.Clear();
  EXPECT_FALSE(form->picker.Valid());
}

}  // namespace
}  // namespace kvraedi
