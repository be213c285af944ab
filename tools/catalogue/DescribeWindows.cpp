// Writes what a catalogue may say of the windows, from the windows themselves, for the check of a catalogue.
//   marvello-describe-windows FILE
// The build runs it: there is no screen, and no catalogue yet but an empty one.

#include <SQLiteCpp/SQLiteCpp.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

#include "controls/AdvanceText.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/MessageBox.h"
#include "controls/TabStrip.h"
#include "data/Session.h"
#include "tools/catalogue/Schema.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/MDIMain.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmFind.h"
#include "workspace/frmSelection.h"
#include "workspace/frmselectionInverter.h"

namespace marvello {

namespace {

using Json = nlohmann::json;

void makeEmptyCatalogue(const std::string& file) {
    SQLite::Database made(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    made.exec("PRAGMA application_id=" + std::to_string(clsDatabase::applicationId) +
              "; PRAGMA user_version=" + std::to_string(clsDatabase::schemaVersion));
    for (const Table& table : schemaTables()) made.exec(createStatements(table));
}

class Description {
  public:
    /// Controls without a name, and those of the library under Qt's own names, are no business of a
    /// catalogue.
    void add(const QWidget& window) {
        Json& told = all_["windows"][toCore(window.objectName())];
        told[toCore(window.objectName())] = classOf(window);
        for (const QObject* child : window.findChildren<QObject*>()) {
            const QString name = child->objectName();
            if (!name.isEmpty() && !name.startsWith(u"qt_")) told[toCore(name)] = classOf(*child);
        }
        for (const AdvanceText* field : window.findChildren<AdvanceText*>())
            if (!field->Key().isEmpty()) all_["neutral"][toCore(field->objectName())] = toCore(field->Key());
    }

    void addPages(const TabStrip& pages) {
        for (int page = 0; page < pages.count(); ++page) all_["pages"] += toCore(pages.key(page));
    }

    void addMarks(const QStringList& names) {
        for (const QString& name : names) all_["marks"] += toCore(name);
    }

    const Json& all() const { return all_; }

  private:
    std::string classOf(const QObject& control) {
        static constexpr std::array<const char*, 5> kinds{"boolean", "whole", "real", "colour", "text"};
        const std::string name = control.metaObject()->className();
        Json& told = all_["classes"][name];
        if (told.is_null())
            for (const auto& [property, kind] : assignableProperties(control))
                told[toCore(property)] = kinds.at(static_cast<std::size_t>(kind));
        return name;
    }

    Json all_;
};

int describe(const char* file) {
    const Session session;
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const std::string catalogue = toCore(folder.filePath(QStringLiteral("db.mdb")));
    makeEmptyCatalogue(catalogue);
    gDatabase().Connect("Data Source=" + catalogue);
    MessageBox::setHandler([](MessageBox::Mark, const QString&) {});
    Description description;
    description.add(MDIMain(QString()));
    const frmSelection form;
    description.add(form);
    description.addPages(*form.findChild<TabStrip*>());
    description.addMarks(mark::withText);
    description.add(frmselectionInverter());
    description.add(frmFind());
    std::ofstream output(file);
    output << description.all().dump(1) << '\n';
    return output.flush() ? 0 : 1;
}

}  // namespace

}  // namespace marvello

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    marvello::Look::install(application, marvello::Look::light());
    if (argc != 2) return std::fputs("Name the file to write.\n", stderr), 2;
    try {
        return marvello::describe(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The windows cannot be described: %s\n", error.what());
        return 1;
    }
}
