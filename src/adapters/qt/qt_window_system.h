#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <span>

#include "adapters/qt/form_pane.h"
#include "adapters/qt/sibling_cover.h"
#include "adapters/qt/top_window.h"
#include "adapters/qt/work_cover.h"
#include "platform/machine/window_system.h"

namespace orv {

/// The windows, in Qt. Where a form's controls stand is asked by the form's name. When no form is loaded any more and
/// no event runs, the application's event loop ends.
class QtWindowSystem : public WindowSystem {
public:
    using Layouts = std::function<std::span<const Placement>(std::string_view form)>;

    QtWindowSystem(Layouts layouts, FormHost& forms, RoomOf roomOf = screenRoom)
        : layouts_(std::move(layouts)), forms_(forms), roomOf_(std::move(roomOf)) {}
    ~QtWindowSystem() override;

    /// Brings the window that the operator works with to the front, also from the task bar.
    void toFront() const;

    void open(Form& form) override;
    void show(Form& form) override;
    void close(Form& form) override;
    void centre(Form& form) override;
    void runModal(Form& form) override;
    std::size_t showNotice(const Notice& notice) override;
    std::optional<std::string> openFile(const FileQuestion& question) override;
    void commitComposition() override;
    void working(const std::string& what) override;
    void pointToSibling(Form& form, const std::string& line, std::function<void()> pressed) override;
    void beep() override;
    void pointer(bool busy) override;
    void repaint() override;

private:
    class PlainPointer;

    void tidyLater();
    void tidy();
    void endWork();
    /// Null for a form that is not loaded.
    FormPane* paneOf(const Form* form) const;
    TopWindow& pageWindow();
    ScreenRoom room(Sizing sizing) const;
    /// The window that the operator works with, or null.
    QWidget* activeWindow() const;

    Layouts layouts_;
    FormHost& forms_;
    RoomOf roomOf_;
    std::map<const Form*, FormPane*> panes_;
    /// Shows what is not modal, one form after the other.
    std::unique_ptr<TopWindow> window_;
    bool busy_ = false;
    QPointer<WorkCover> workCover_;
    QPointer<SiblingCover> siblingCover_;
    /// Calls that are still queued die with it.
    QObject queue_;
};

}  // namespace orv
