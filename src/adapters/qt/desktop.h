#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QStringList>
#include <functional>
#include <memory>

namespace orv {

// The parts of the toolkit's set-up that differ between the desktops of the systems.

/// Returns the toolkit's platforms in the order in which they are tried.
const char* toolkitPlatforms();

/// Prepares input methods and fonts and creates the toolkit.
std::unique_ptr<QApplication> prepareToolkit(const std::function<std::unique_ptr<QApplication>()>& create);

/// Keeps the input of the operator in its order while the result exists, where the desktop does not. Null if it does.
std::unique_ptr<QObject> keepInputInOrder();

/// Returns the names of fonts for Japanese text, the best first.
QStringList japaneseFamilies();

/// Returns the options of the open dialog.
QFileDialog::Options openDialogOptions();

}  // namespace orv
