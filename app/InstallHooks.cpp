#include "app/InstallHooks.h"

#include <QCoreApplication>

#include "app/SettingsStore.h"
#include "controls/MessageBox.h"
#include "data/Hooks.h"

namespace marvello {

namespace {

MessageBox::Mark markOf(BoxKind kind) {
    switch (kind) {
        case BoxKind::plain:
            return MessageBox::Mark::plain;
        case BoxKind::information:
            return MessageBox::Mark::information;
        case BoxKind::critical:
            return MessageBox::Mark::critical;
    }
    return MessageBox::Mark::plain;
}

}  // namespace

void installHooks(Hooks& hooks) {
    hooks.giveTurn = [] { QCoreApplication::processEvents(); };
    hooks.showBox = [](BoxKind kind, const std::string& text) {
        MessageBox::show(nullptr, markOf(kind), QString::fromStdString(text));
    };
    hooks.readSetting = readSetting;
    hooks.writeSetting = writeSetting;
}

}  // namespace marvello
