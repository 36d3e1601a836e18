#include "frame/modMsgOp.h"

#include <gtest/gtest.h>

#include "kvraedi/adaptadores.h"
#include "platform/headless/headless_toolkit.h"

namespace kvraedi {
namespace {

class MsgOpTest : public testing::Test {
 protected:
  void SetUp() override { InstalarAdaptadores({.toolkit = &toolkit}); }
  void TearDown() override {
    if (ui::Form* form = toolkit.OpenForm("frmMsg")) form->Unload();
    InstalarAdaptadores({});
  }
  std::string Texto() const {
    const auto* const label = dynamic_cast<ui::Label*>(toolkit.OpenForm("frmMsg")->Find("lblMsg"));
    return label->Caption();
  }
  HeadlessToolkit toolkit;
};

TEST_F(MsgOpTest, OneWindowFollowsTheText) {
  MsgOp(true, "");
  EXPECT_EQ(Texto(), "Realizando operación, espere por favor...");
  EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kHourglass);
  ui::Form* const primera = toolkit.OpenForm("frmMsg");
  const int ancho = primera->Width();
  MsgOp(true, "Corto");
  EXPECT_EQ(toolkit.OpenForm("frmMsg"), primera);
  EXPECT_EQ(Texto(), "Corto");
  EXPECT_EQ(primera->Width(), toolkit.TextWidth({"MS Sans Serif", 8, true}, "Corto") + 2500);
  EXPECT_LT(primera->Width(), ancho);
  MsgOp(false, kMensajeOperacion);
  EXPECT_FALSE(primera->Visible());
  EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
}

TEST_F(MsgOpTest, HidingWhatWasNeverShownOnlyRestoresThePointer) {
  toolkit.SetPointer(ui::Pointer::kHourglass);
  MsgOp(false, kMensajeOperacion);
  EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
  EXPECT_EQ(toolkit.OpenForm("frmMsg"), nullptr);
}

TEST_F(MsgOpTest, ComesBackAfterItsWindowWasClosed) {
  MsgOp(true, "Uno");
  toolkit.OpenForm("frmMsg")->Unload();
  MsgOp(true, "Dos");
  ASSERT_NE(toolkit.OpenForm("frmMsg"), nullptr);
  EXPECT_EQ(Texto(), "Dos");
}

TEST_F(MsgOpTest, AFailingToolkitDoesNotInterruptTheCaller) {
  InstalarAdaptadores({});
  MsgOp(true, "Sin pantalla");
  MsgOp(false, "");
  InstalarAdaptadores({.toolkit = &toolkit});
}

}  // namespace
}  // namespace kvraedi
