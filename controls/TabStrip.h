#pragma once

#include <QTabBar>

namespace marvello {

/// A row of tabs: of the open forms, each with its icon, or of the pages under the results list. A tab keeps
/// its key as data.
class TabStrip : public QTabBar {
    Q_OBJECT

  public:
    enum class Kind { forms, pages };

    explicit TabStrip(Kind kind, QWidget* parent = nullptr);

    int addKeyed(const QString& key, const QString& text, const QIcon& tabIcon = QIcon());
    QString key(int index) const;
    /// The position of a key, -1 when there is none.
    int indexOf(const QString& key) const;
    QString currentKey() const { return key(currentIndex()); }

  protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void paintForm(QPainter& painter, int index) const;
    void paintPage(QPainter& painter, int index) const;

    Kind kind_;
    int hovered_ = -1;
};

/// The band behind a row of tabs, from edge to edge, with the tabs set in from the left.
class TabBand : public QWidget {
    Q_OBJECT

  public:
    explicit TabBand(TabStrip::Kind kind, QWidget* parent = nullptr);
    TabStrip* strip() { return strip_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TabStrip* strip_;
    TabStrip::Kind kind_;
};

}  // namespace marvello
