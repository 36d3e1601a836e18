#include "frame/modMsgOp.h"

#include <gtest/gtest.h>

#include "kvraedi/adaptadores.h"
#include "platform/headless/headless_toolkit.h"
#include "tests/apoyo/puertos_con_fallos.h"

namespace kvraedi {
namespace {

class MsgOpTest : public testing::Test {
 protected:
  void SetUp() override { InstalarAdaptadores({.toolkit = &toolkit}); }
  void TearDown() override { InstalarAdaptadores({}); }
  std::string Texto() const {
    const auto* const label = dynamic_cast<ui::Label*>(real.OpenForm("frmMsg")->Find("lblMsg"));
    return label->Caption();
  }
  HeadlessToolkit real;
  ToolkitConFallos toolkit{real};
};

TEST_F(MsgOpTest, OneWindowFollowsTheText) {
  real.SetPointer(ui::Pointer::kHourglass);
  MsgOp(false, kMensajeOperacion);
  EXPECT_EQ(real.CurrentPointer(), ui::Pointer::kDefault);
  EXPECT_EQ(real.OpenForm("frmMsg"), nullptr) << "it was never shown";
  MsgOp(true, "");
  EXPECT_EQ(Texto(), "Realizando operación, espere por favor...");
  EXPECT_EQ(real.CurrentPointer(), ui::Pointer::kHourglass);
  ui::Form* const primera = real.OpenForm("frmMsg");
  MsgOp(true, "Corto");
  EXPECT_EQ(real.OpenForm("frmMsg"), primera);
  EXPECT_EQ(Texto(), "Corto");
  EXPECT_EQ(primera->Width(), real.TextWidth({"MS Sans Serif", 8, true}, "Corto") + 2500);
  MsgOp(false, kMensajeOperacion);
  EXPECT_FALSE(primera->Visible());
  EXPECT_EQ(real.CurrentPointer(), ui::Pointer::kDefault);
  primera->Unload();
  MsgOp(true, "Dos");
  EXPECT_EQ(Texto(), "Dos");
}

TEST_F(MsgOpTest, EachStepIsTakenWhateverHappensToTheOthers) {
  const auto ventana = [&] {
    const ui::Form* const form = real.OpenForm("frmMsg");
    return form != nullptr && form->Visible();
  };
  int k = 1;
  for (bool disparado = true; disparado; ++k) {
    SCOPED_TRACE(k);
    CerrarMsgOp();
    real.SetPointer(ui::Pointer::kDefault);
    toolkit.fallo.FallarEn(k);
    MsgOp(true, "Generando");
    disparado = toolkit.fallo.Disparado();
    toolkit.fallo.FallarEn(0);
    EXPECT_EQ(real.CurrentPointer() == ui::Pointer::kHourglass, k != 1);
    EXPECT_EQ(ventana(), k != 4) << "only the window itself may be missing";
    MsgOp(false, "");
    EXPECT_FALSE(ventana());
    EXPECT_EQ(real.CurrentPointer(), ui::Pointer::kDefault);
  }
  EXPECT_EQ(k, 7) << "pointer, width twice, window, painting";
  InstalarAdaptadores({});
  MsgOp(true, "Sin pantalla");
  MsgOp(false, "");
}

TEST_F(MsgOpTest, TakingTheAdaptersBackTakesTheWindowAway) {
  for (const bool averiado : {false, true}) {
    MsgOp(true, "Uno");
    toolkit.fallo.FallarEn(averiado ? 1 : 0);
    InstalarAdaptadores({});
    EXPECT_EQ(real.OpenForm("frmMsg"), nullptr) << "at the latest when the form ends";
    InstalarAdaptadores({.toolkit = &toolkit});
  }
}

}  // namespace
}  // namespace kvraedi
