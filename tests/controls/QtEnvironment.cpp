// One application for all tests of the program, on a screen that no one sees.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <memory>

#include "controls/Look.h"

namespace {

class QtEnvironment : public testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argumentCount = 1;
        static char name[] = "controls_tests";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QApplication>(argumentCount, arguments);
        // Numbers are expected as the C locale writes them; a test of other locales sets its own.
        QLocale::setDefault(QLocale::c());
        marvello::Look::install(*application_, marvello::Look::light());
    }
    void TearDown() override { application_.reset(); }

  private:
    std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
