// The settings of a user with changed values: the windows open over them, calculate and keep them again.
#include <QApplication>
#include <QSettings>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>

#include "catalogue/Globals.h"
#include "controls/Look.h"
#include "controls/MessageBox.h"
#include "data/Session.h"
#include "tests/fuzz/Edits.h"
#include "tests/support/TemporaryFolder.h"
#include "workspace/MDIMain.h"
#include "workspace/SelectionForm.h"

namespace {

using namespace marvello;

const char* const sound = R"([Export]
Folder=/tmp
[Forms]
frmSelection\ColumnWidths="compressor=120", "q0=60"
frmSelection\Keys="cmbEco=1", "cmbMotorRPM=1450", "cmbMotorSize=-1", "cmbSh=0", "lstModels=*", "lstRefrigerants=R407C", "lstSeries=TK-A"
frmSelection\MeasureUnit=0
frmSelection\MidLeadsEvaporation=true
frmSelection\Values="txtEco=10", "txtOilCooling=110", "txtSC=5", "txtSH=8", "txtTCD=45", "txtTED=0", "txtTEM=-2.5"
frmselectionInverter\Keys="lstRefrigerants=R134A", "lstSeries=TK-D"
frmselectionInverter\Values="txtFrequency=50", "txtTCD=45", "txtTED=0"
[Windows]
Frame=@ByteArray(\x1\xd9\xd0\xcb\0\x3\0\0\0\0\0O\0\0\0\x34\0\0\x5\xf0\0\0\x3\xb2\0\0\0P\0\0\0H\0\0\x5\xef\0\0\x3\xad)
ListHeight=338
PanelWidth=400
cmbGroupBy=1
cmbmeasureunits=1
)";

const std::filesystem::path& file() {
    static const std::filesystem::path all = [] {
        const auto folder = test::newTemporaryFolder("marvello-fuzz");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(folder.string()));
        std::filesystem::create_directory(folder / "Kestrom");
        return folder / "Kestrom" / "Marvello.conf";
    }();
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: the library's own devices may go before it at the end of the process.
    static QApplication& application = *new QApplication(*count, *arguments);
    Look::install(application, Look::light());
    MessageBox::setHandler([](MessageBox::Mark, const QString&) {});
    static const Session session(MARVELLO_APP_FOLDER);
    openCatalogue();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider changes(data, size);
    std::ofstream(file(), std::ios::binary) << fuzz::withChangedFields(sound, changes);
    MDIMain window("1.0.0");
    window.show();
    for (SelectionForm* form : {window.newSelection(), window.newInverterSelection()}) {
        form->lnkCalculate_Click();
        QApplication::processEvents();
    }
    window.close();
    return 0;
}
