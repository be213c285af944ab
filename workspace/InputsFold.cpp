#include "workspace/InputsFold.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

#include "controls/Splitter.h"
#include "workspace/InputSummary.h"

namespace marvello {

InputsFold::InputsFold(QWidget& form, Splitter& splitter, QWidget& inputs, InputSummary& summary)
    : QObject(&form),
      form_(form),
      splitter_(splitter),
      inputs_(inputs),
      summary_(summary),
      width_(minWidth),
      barSize_(splitter.SplitterSize()) {
    summary_.hide();
    splitter_.SetMinSize1(minWidth);
    splitter_.SetMaxSize(maxWidth);
    splitter_.SetChild1(inputs_.objectName());
    splitter_.SetSplitterPos(width_);
    connect(&summary_, &InputSummary::editClicked, this, [this] {
        setOpen(!isOpen_);
        if (isOpen_) show();
    });
    // A dialog or a menu only borrows the focus.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
        if (isNarrow_ && isOpen_ && hasResults_ && now && form_.isAncestorOf(now) &&
            !inputs_.isAncestorOf(now) && !summary_.isAncestorOf(now))
            setOpen(false);
    });
}

void InputsFold::layOut() {
    const bool isNarrow = form_.width() < narrowBelow;
    if (isNarrow != isNarrow_) {
        // To change its parent takes the focus from a widget, and may take it from others of the window.
        QWidget* focused = form_.window()->focusWidget();
        if (focused && !form_.isAncestorOf(focused)) focused = nullptr;
        isNarrow ? fold() : unfold();
        if (focused && focused->isVisibleTo(&form_)) focused->setFocus();
        emit changed();
    }
    place();
}

bool InputsFold::holdsFocus() const {
    const QWidget* focused = form_.window()->focusWidget();
    return focused && inputs_.isAncestorOf(focused);
}

void InputsFold::fold() {
    if (!isCollapsed_) width_ = splitter_.SplitterPos();
    // What is being edited stays in sight, and so does what there is to do before the first list.
    isOpen_ = !hasResults_ || holdsFocus();
    isNarrow_ = true;
    splitter_.SetChild1(QString());
    splitter_.SetSplitterSize(0);
    splitter_.SetMinSize1(0);
    splitter_.SetSplitterPos(0);
    inputs_.setParent(&form_);
    inputs_.setVisible(isOpen_);
    summary_.setOpen(isOpen_);
}

void InputsFold::unfold() {
    isNarrow_ = false;
    summary_.hide();
    inputs_.setParent(&splitter_);
    inputs_.show();
    splitter_.SetSplitterSize(barSize_);
    splitter_.SetChild1(inputs_.objectName());
    splitter_.SetMinSize1(isCollapsed_ ? 0 : minWidth);
    splitter_.SetSplitterPos(isCollapsed_ ? 0 : width_);
}

void InputsFold::place() {
    const QRect all = form_.rect();
    if (!isNarrow_) {
        splitter_.setGeometry(all);
        return;
    }
    // Without results the inputs are open, and need no line that sums them up.
    const bool isAlone = isOpen_ && !hasResults_;
    const QRect below = isAlone ? all : all.adjusted(0, InputSummary::barHeight, 0, 0);
    summary_.setVisible(!isAlone);
    summary_.setGeometry(0, 0, all.width(), InputSummary::barHeight);
    // The rest of a form without results says what to do, which takes a minimum of room.
    constexpr int minRest = 200;
    const int width = all.width() - minWidth < minRest ? all.width() : minWidth;
    inputs_.setGeometry(below.left(), below.top(), width, below.height());
    splitter_.setGeometry(isAlone ? below.adjusted(width, 0, 0, 0) : below);
    if (isOpen_) inputs_.raise();
}

void InputsFold::setHasResults(bool has) {
    if (has == hasResults_) return;
    hasResults_ = has;
    if (!isNarrow_) return;
    if (!has && !isOpen_) setOpen(true);
    place();
}

void InputsFold::setOpen(bool open) {
    if (open == isOpen_) return;
    isOpen_ = open;
    inputs_.setVisible(open);
    summary_.setOpen(open);
    place();
    emit changed();
}

void InputsFold::collapse(bool collapse) {
    if (collapse == isCollapsed()) return;
    if (isNarrow_) {
        setOpen(!collapse);
        if (!collapse) show();
        return;
    }
    isCollapsed_ = collapse;
    if (collapse) width_ = splitter_.CurrSplitterPos() > 0 ? splitter_.CurrSplitterPos() : minWidth;
    splitter_.SetMinSize1(collapse ? 0 : minWidth);
    splitter_.SetSplitterPos(collapse ? 0 : width_);
    emit changed();
}

void InputsFold::show() {
    if (isNarrow_) setOpen(true);
    if (holdsFocus()) return;
    // The field that had the focus last, or the first one.
    QWidget* field = inputs_.focusWidget();
    if (!field) field = inputs_.nextInFocusChain();
    if (isNarrow_ && field && inputs_.isAncestorOf(field)) field->setFocus(Qt::OtherFocusReason);
}

int InputsFold::panelWidth() const { return isNarrow_ || isCollapsed_ ? width_ : splitter_.SplitterPos(); }

void InputsFold::setPanelWidth(int width) {
    width_ = std::clamp(width, minWidth, maxWidth);
    if (!isNarrow_ && !isCollapsed_) splitter_.SetSplitterPos(width_);
}

}  // namespace marvello
