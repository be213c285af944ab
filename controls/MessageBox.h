#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace marvello {

/// The one way to show the user a sentence and wait for it to be acknowledged.
class MessageBox {
  public:
    enum class Mark { plain, information, critical };
    using Handler = std::function<void(Mark mark, const QString& text)>;

    /// Shows the box over the window of `parent`, or over the active window without one.
    static void show(QWidget* parent, Mark mark, const QString& text);

    /// Lets `handler` take every box instead of the user, for tests and programs without a person; an empty
    /// one brings the boxes back. Returns the handler before.
    static Handler setHandler(Handler handler);
};

}  // namespace marvello
