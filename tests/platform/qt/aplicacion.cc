#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace kvraedi::prueba {
namespace {

/// One QApplication for all tests, without a screen unless the caller chose one.
class Aplicacion : public testing::Environment {
 public:
  void SetUp() override {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[8] = "pruebas";
  int argc_ = 1;
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

const auto* const kAplicacion = testing::AddGlobalTestEnvironment(new Aplicacion);

}  // namespace
}  // namespace kvraedi::prueba
