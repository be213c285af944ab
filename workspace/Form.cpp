#include "workspace/Form.h"

#include <QCloseEvent>

namespace marvello {

void Form::setKey(const QString& key) {
    key_ = key;
    setWindowTitle(description_.isEmpty() ? key : description_);
}

void Form::setDescription(const QString& description) {
    description_ = description;
    setWindowTitle(description);
}

void Form::Quit() {
    if (QWidget* window = parentWidget())
        window->close();
    else
        close();
}

void Form::closeEvent(QCloseEvent* event) {
    keep();
    QWidget::closeEvent(event);
}

}  // namespace marvello
