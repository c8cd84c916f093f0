#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <span>

#include "adapters/qt/form_pane.h"
#include "adapters/qt/top_window.h"
#include "adapters/qt/work_cover.h"
#include "platform/machine/window_system.h"

namespace orv {

/// The window system in Qt. The layout of a form is looked up by the form's name. The application's event loop ends
/// when no form is loaded any more and no event is running.
class QtWindowSystem : public WindowSystem {
public:
    using Layouts = std::function<std::span<const Placement>(std::string_view form)>;

    QtWindowSystem(Layouts layouts, FormHost& forms, MeasureScreen measure = measureScreen)
        : layouts_(std::move(layouts)), forms_(forms), measure_(std::move(measure)) {}
    ~QtWindowSystem() override;

    /// Brings the operator's current window to the front and restores it if it is minimised.
    void bringToFront() const;

    void open(Form& form) override;
    void show(Form& form) override;
    void close(Form& form) override;
    void centre(Form& form) override;
    void runModal(Form& form) override;
    std::size_t showNotice(const Notice& notice) override;
    std::optional<std::string> openFile(const FileQuestion& question) override;
    void commitComposition() override;
    void showWork(const std::string& what) override;
    void pointToSibling(Form& form, const std::string& line, std::function<void()> pressed) override;
    void beep() override;
    void showPointer(bool busy) override;
    void repaint() override;

private:
    class PlainPointer;

    void tidyLater();
    void tidy();
    void endWork();
    /// Null for a form that is not loaded.
    FormPane* findPane(const Form* form) const;
    TopWindow& pageWindow();
    ScreenSpace space(Sizing sizing) const;
    /// Returns the window of the active form, or null.
    QWidget* activeWindow() const;

    Layouts layouts_;
    FormHost& forms_;
    MeasureScreen measure_;
    std::map<const Form*, FormPane*> panes_;
    /// Shows the forms that are not modal, one at a time.
    std::unique_ptr<TopWindow> window_;
    bool busy_ = false;
    QPointer<WorkCover> workCover_;
    QPointer<SiblingCover> siblingCover_;
    /// Calls that are still queued are dropped with this object.
    QObject queue_;
};

}  // namespace orv
