#include "tests/workspace/WorkspaceFixture.h"

#include <QSettings>
#include <fstream>
#include <sstream>

#include "data/Csv.h"
#include "data/Faults.h"
#include "data/Session.h"

namespace marvello::testing {

namespace {

std::string contentOf(const std::string& file) {
    std::ifstream stream(std::string(MARVELLO_SOURCE_FOLDER) + "/content/" + file, std::ios::binary);
    EXPECT_TRUE(stream.good()) << file;
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace

WorkspaceFixture::WorkspaceFixture() {
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    handlerBefore_ = MessageBox::setHandler([this](MessageBox::Mark, const QString& text) { boxes += text; });
    table("tLanguages.csv", "tLanguages");
    table("tDictionary.en-EN.csv", "tDictionary", {"en-EN"});
    table("tDictionary.it-IT.csv", "tDictionary", {"it-IT"});
    table("tParametersHead.csv", "tParametersHead");
    table("tParametersRows.csv", "tParametersRows");

    catalogue.completeDefault();
    catalogue.limit("COLD", 0, "-40,20;-20,20;-20,40;-40,40;-40,20");
    catalogue.compressor();
    catalogue.compressor({{"fModelID", "'120'"}, {"fSequence", "'020'"}, {"fLimitID", "'COLD'"}});
    catalogue.compressor({{"fModelID", "'140'"}, {"fSequence", "'030'"}});
    catalogue.compressor({{"fSerieID", "'DZ'"}, {"fModelID", "'1'"}, {"fMarket", "1"}});
    catalogue.compressor({{"fSerieID", "'DZ'"}, {"fModelID", "'2'"}, {"fMarket", "2"}});
    catalogue.compressor({{"fSerieID", "'DZ'"}, {"fModelID", "'0'"}, {"fMarket", "0"}});
    catalogue.compressor({{"fSerieID", "'MV-H'"}, {"fModelID", "'50'"}});
    catalogue.compressor({{"fRefrigerantID", "'R290'"}, {"fModelID", "'90'"}});
    catalogue.compressor({{"fRefrigerantID", "'R290'"}, {"fSerieID", "'NL-H'"}, {"fModelID", "'30'"}});
}

WorkspaceFixture::~WorkspaceFixture() { MessageBox::setHandler(handlerBefore_); }

void WorkspaceFixture::table(const std::string& file, const std::string& name,
                             const std::vector<std::string>& before) {
    Faults faults;
    const auto records = readCsv(contentOf(file), file, faults);
    std::string statements = "begin;";
    for (std::size_t i = 1; i < records.size(); ++i) {
        std::string row;
        for (const auto& values : {before, records[i].fields})
            for (const std::string& value : values) row += (row.empty() ? "" : ",") + sqlText(value);
        statements += "insert into " + name + " values(" + row + ");";
    }
    catalogue.exec(statements + "commit;");
}

}  // namespace marvello::testing
