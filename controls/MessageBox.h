#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace marvello {

/// The one way to show the user a sentence and wait for it to be acknowledged or answered.
class MessageBox {
  public:
    enum class Mark { plain, information, critical };
    using Handler = std::function<void(Mark mark, const QString& text)>;

    /// Shows the box over the window of `parent`, or over the active window without one.
    static void show(QWidget* parent, Mark mark, const QString& text);

    /// Asks a question with two answers. True for `yes`; false for `no` and when the box is closed. Always
    /// asks the user, whatever handler is set.
    static bool ask(QWidget* parent, const QString& question, const QString& yes, const QString& no);

    /// Lets `handler` take every box that is shown instead of the user, for tests and programs without a
    /// person; an empty one brings the boxes back. Returns the handler before.
    static Handler setHandler(Handler handler);
};

}  // namespace marvello
