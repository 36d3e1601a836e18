#include <gtest/gtest.h>

#include "kvraedi/adaptadores.h"
#include "kvraedi/error.h"
#include "platform/headless/headless_toolkit.h"

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
    first.onEnter = [this] { ++enters; };
  }
  void OnLoad() override {
    ++loads;
    if (unloadInsideLoad) Unload();
  }
  void OnUnload() override { ++unloads; }

  ui::Label label{*this, "label", "Texto"};
  ui::TextBox first{*this, "first"};
  ui::DateBox second{*this, "second"};
  ui::Button button{*this, "button", "&Cerrar"};
  ui::ComboBox combo{*this, "combo"};
  ui::Picker picker{*this, "picker"};
  bool unloadInsideLoad = false;
  int loads = 0, unloads = 0, comboClicks = 0, enters = 0;
};

class FormTest : public testing::Test {
 protected:
  void SetUp() override { InstalarAdaptadores({.toolkit = &toolkit}); }
  void TearDown() override {
    form.reset();
    InstalarAdaptadores({});
  }
  HeadlessToolkit toolkit;
  std::shared_ptr<TestForm> form = std::make_shared<TestForm>();
};

TEST_F(FormTest, LoadsOnceAndUnloadsOnce) {
  int events = 0;
  form->onUnload = [&] { ++events; };
  form->Show();
  form->Hide();
  form->Show();
  EXPECT_EQ(form->loads, 1);
  EXPECT_EQ(toolkit.OpenForm("frmPrueba"), form.get());
  form->Unload();
  form->Unload();
  EXPECT_EQ(form->unloads, 1);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(toolkit.OpenForm("frmPrueba"), nullptr);
}

TEST_F(FormTest, UnloadedInsideItsLoadIsNeverShown) {
  form->unloadInsideLoad = true;
  form->Show(ui::ShowMode::kModal);
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(toolkit.OpenForm("frmPrueba"), nullptr);
}

TEST_F(FormTest, LivesUntilTheHandlerThatForgetsItReturns) {
  form->onUnload = [this] { form.reset(); };
  form->Show();
  ui::Button& button = form->button;
  button.Press();
  EXPECT_EQ(form, nullptr);
}

TEST_F(FormTest, ModalShowRunsTheQueuedStepsThenCloses) {
  toolkit.OnShow("frmPrueba", [](ui::Form& shown) {
    dynamic_cast<ui::TextBox*>(shown.Find("first"))->Type("hola");
  });
  form->Show(ui::ShowMode::kModal);
  EXPECT_EQ(form->first.Text(), "hola");
  EXPECT_FALSE(form->Loaded());
}

TEST_F(FormTest, FocusGoesToTheNextControlThatCanTakeIt) {
  form->FocusNext(form->first);
  EXPECT_EQ(form->ActiveControl(), &form->second);
  form->button.SetEnabled(false);
  form->FocusNext(form->second);
  EXPECT_EQ(form->ActiveControl(), &form->combo);
  form->FocusNext(form->picker);
  EXPECT_EQ(form->ActiveControl(), &form->first) << "labels are passed over, the end wraps";
}

TEST_F(FormTest, DisabledAndHiddenControlsIgnoreTheUser) {
  form->first.SetEnabled(false);
  form->first.Type("x");
  form->first.PressEnter();
  form->button.SetVisible(false);
  form->Show();
  form->button.Press();
  EXPECT_EQ(form->first.Text(), "");
  EXPECT_EQ(form->enters, 0);
  EXPECT_TRUE(form->Loaded());
}

TEST_F(FormTest, ComboClicksComeFromUserAndProgram) {
  form->combo.AddItem("a");
  form->combo.AddItem("b");
  form->combo.SetListIndex(0);
  form->combo.SetListIndex(0);
  EXPECT_EQ(form->comboClicks, 1);
  form->combo.Choose(0);
  form->combo.Choose(5);
  EXPECT_EQ(form->comboClicks, 2);
  EXPECT_EQ(form->combo.ListIndex(), 0);
}

TEST_F(FormTest, ComboItemsAreFoundByTextAndByData) {
  EXPECT_EQ(form->combo.Text(), "");
  EXPECT_EQ(form->combo.Data(), 0);
  form->combo.AddItem("a", 34);
  form->combo.AddItem("b", -1);
  form->combo.AddItem("a", 5);
  form->combo.SelectData(5);
  EXPECT_EQ(form->combo.ListIndex(), 2);
  form->combo.SelectData(6);
  form->combo.SelectText("c");
  EXPECT_EQ(form->combo.ListIndex(), 2);
  form->combo.SelectText("a");
  EXPECT_EQ(form->combo.Text(), "a");
  EXPECT_EQ(form->combo.Data(), 34);
  EXPECT_EQ(form->comboClicks, 2);
}

TEST_F(FormTest, DateBoxKeepsWhatStandsUnderTheMask) {
  for (const auto& [typed, text] : {std::pair{"01032024", "01/03/2024"},
                                    {"01/03/2024", "01/03/2024"},
                                    {"//", ""},
                                    {"__/__/____", ""},
                                    {"", ""},
                                    {"1/3", "1/3"}}) {
    form->second.Type(typed);
    EXPECT_EQ(form->second.Text(), text);
  }
}

TEST_F(FormTest, PickerLooksATextUpOnceAndTellsFailures) {
  form->picker.SetSource(std::make_unique<Source>());
  Source::resolved = 0;
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

TEST(Adapters, AMissingOneIsToldByName) {
  InstalarAdaptadores({});
  try {
    ui::CurrentToolkit();
    FAIL();
  } catch (const Error& error) {
    EXPECT_NE(error.Description().find("toolkit"), std::string::npos);
  }
}

TEST(TextArea, WhatIsTypedTurnsIntoCapitals) {
  struct Comentario : ui::Form {
    Comentario() : Form("frmPrueba", "Prueba") {}
    ui::TextArea texto{*this, "texto"};
  } form;
  form.texto.SetUpperCase(true);
  form.texto.SetText("año");
  const struct {
    const char *escrito, *queda;
  } casos[] = {
      {"años", "añoS"},           {"x\r\nañoS", "X\r\nañoS"}, {"", ""},
      {"ñandú 3÷b", "ÑANDÚ 3÷B"}, {"ÑANDè 3÷B", "ÑANDÈ 3÷B"}, {"ÑANDÈ 3÷BBb", "ÑANDÈ 3÷BBB"},
      {"ÑANDÈ", "ÑANDÈ"},         {"ÑANDÈÿ€", "ÑANDÈÿ€"},
  };
  for (const auto& [escrito, queda] : casos) {
    form.texto.Type(escrito);
    EXPECT_EQ(form.texto.Text(), queda);
  }
  form.texto.SetReadOnly(true);
  form.texto.Type("nada");
  EXPECT_EQ(form.texto.Text(), "ÑANDÈÿ€");
}

}  // namespace
}  // namespace kvraedi
