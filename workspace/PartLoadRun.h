#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "catalogue/PreparedCatalogue.h"
#include "engine/PartLoad.h"
#include "workspace/Background.h"

namespace marvello {

/// Calculates the part load of a machine while the window goes on, an economizer in several threads. A newer
/// question takes the place of the one before.
class PartLoadRun : public QObject {
    Q_OBJECT

  public:
    explicit PartLoadRun(QObject* parent = nullptr);

    /// Emits one of the signals later. The catalogue holds the compressor of the question.
    void start(const std::shared_ptr<const PreparedCatalogue>& catalogue, const PartLoadQuestion& question);
    /// Gives up what was started.
    void stop();

  signals:
    void calculated(const marvello::PartLoadTable& table);
    void failed(const QString& reason);

  private:
    Background background_;
};

}  // namespace marvello
