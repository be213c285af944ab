// The program's own application object for all tests, on a screen that no one sees and with a home of its
// own.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "app/Application.h"

namespace {

class ApplicationEnvironment : public testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_CONFIG_HOME", home_.filePath(QStringLiteral("config")).toUtf8());
        qputenv("XDG_RUNTIME_DIR", home_.path().toUtf8());
        qputenv("MARVELLO_SPLASH_MS", "10");
        application_ = std::make_unique<marvello::Application>(argumentCount_, arguments_);
    }
    void TearDown() override { application_.reset(); }

  private:
    QTemporaryDir home_;
    char name_[9] = "app_test";
    char* arguments_[2] = {name_, nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<marvello::Application> application_;
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
