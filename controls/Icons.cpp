#include "controls/Icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <memory>

#include "controls/Look.h"

namespace marvello {

namespace {

QByteArray sourceOf(const QString& name) {
    QFile file(QStringLiteral(":/controls/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tinted(const QString& name, const QColor& colour) {
    QByteArray source = sourceOf(name);
    const QByteArray target = colour.name().toLatin1();
    source.replace("#182126", target);
    source.replace("#0E6A80", target);
    return source;
}

QByteArray marked(const QString& name) {
    const Look& from = Look::light();
    const Look& to = Look::current();
    QByteArray source = sourceOf(name);
    const auto replace = [&source](const QColor& old, const QColor& fresh) {
        source.replace(old.name().toUpper().toLatin1(), fresh.name().toLatin1());
    };
    replace(from.green, to.green);
    replace(from.orange, to.orange);
    replace(from.red, to.red);
    replace(from.blue, to.blue);
    replace(from.onMark, to.onMark);
    return source;
}

/// Draws `source` through a cached pixmap of the exact device size, so that a list of marks parses each once.
void paintCached(QPainter& painter, const QRectF& rect, const QString& cacheKey, const QByteArray& source) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize size = (rect.size() * ratio).toSize();
    if (size.isEmpty()) return;
    const QString key = QStringLiteral("%1@%2x%3").arg(cacheKey).arg(size.width()).arg(size.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter inner(&pixmap);
        QSvgRenderer(source).render(&inner);
        inner.end();
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(rect.topLeft(), pixmap);
}

class IconEngine : public QIconEngine {
  public:
    IconEngine(QString name, bool isMark) : name_(std::move(name)), isMark_(isMark) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        if (isMark_) {
            paintMark(*painter, rect, name_);
            return;
        }
        const Look& look = Look::current();
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(0.62);
        const QColor colour = mode == QIcon::Disabled ? look.disabled
                              : state == QIcon::On    ? look.accent
                                                      : look.text;
        paintIcon(*painter, rect, name_, colour);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        return pixmap(size, mode, state);
    }

    QIconEngine* clone() const override { return std::make_unique<IconEngine>(*this).release(); }

  private:
    QString name_;
    bool isMark_;
};

QIcon made(const QString& name, bool isMark) {
    // QIcon takes ownership of its engine.
    return QIcon(std::make_unique<IconEngine>(name, isMark).release());
}

}  // namespace

QIcon icon(const QString& name) { return made(name, false); }

QIcon markIcon(const QString& name) { return made(name, true); }

void paintIcon(QPainter& painter, const QRectF& rect, const QString& name, const QColor& colour) {
    paintCached(painter, rect, name + colour.name(), tinted(name, colour));
}

void paintMark(QPainter& painter, const QRectF& rect, const QString& name) {
    paintCached(painter, rect, name + Look::current().text.name(), marked(name));
}

void paintIconOnPaper(QPainter& painter, const QRectF& rect, const QString& name, const QColor& colour) {
    QSvgRenderer(tinted(name, colour)).render(&painter, rect);
}

void paintMarkOnPaper(QPainter& painter, const QRectF& rect, const QString& name) {
    QSvgRenderer(sourceOf(name)).render(&painter, rect);
}

}  // namespace marvello
