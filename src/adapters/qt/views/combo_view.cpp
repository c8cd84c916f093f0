#include <QAbstractListModel>
#include <QComboBox>
#include <QListView>
#include <QWheelEvent>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

/// Reads entries from the control only when they are displayed, so that a long list costs nothing to show.
class EntryModel : public QAbstractListModel {
public:
    EntryModel(const ComboBox& combo, QObject* parent) : QAbstractListModel(parent), combo_(combo) {}

    int rowCount(const QModelIndex&) const override { return combo_.listCount(); }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole || role == Qt::EditRole ? toQt(combo_.list(index.row())) : QVariant();
    }
    void readAgain() {
        beginResetModel();
        endResetModel();
    }

private:
    const ComboBox& combo_;
};

/// Ignores the wheel, so that scrolling never changes the entry by accident.
class ListBox : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class ComboView : public ControlView {
public:
    ComboView(ComboBox& control, ListBox* box)
        : ControlView(control, box), combo_(control), box_(*box), model_(new EntryModel(control, box)) {
        box_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box_.setMaxVisibleItems(20);
        auto* view = new QListView(&box_);
        view->setUniformItemSizes(true);
        box_.setView(view);
        box_.setModel(model_);
        connect(&box_, &QComboBox::activated, this, [this](int index) { choose(index); });
    }

private:
    void show() override {
        paintWith(QPalette::Base, {QPalette::Text, QPalette::WindowText, QPalette::ButtonText});
        if (version_ != combo_.listVersion()) {
            version_ = combo_.listVersion();
            model_->readAgain();
        }
        if (box_.currentIndex() != combo_.listIndex()) {
            box_.setCurrentIndex(combo_.listIndex());
        }
        tipIfCut(box_.currentText(), box_.width() - box_.height());
        // Assistive technology reads the selected entry even while the list is closed.
        box_.view()->selectionModel()->setCurrentIndex(model_->index(combo_.listIndex()),
                                                       QItemSelectionModel::ClearAndSelect);
    }

    void choose(int index) {
        setFault({});
        combo_.pick(index);
        refresh();
    }

    ComboBox& combo_;
    ListBox& box_;
    EntryModel* model_;
    int version_ = -1;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(ComboBox& control, QWidget* page, const PageScale& /*scale*/) {
    return std::make_unique<ComboView>(control, new ListBox(page));
}

}  // namespace orv
