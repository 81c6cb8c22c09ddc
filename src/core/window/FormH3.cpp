#include "core/window/FormH3.h"

#include "core/Common.h"
#include "core/clsSymbols.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH3Texts.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace korvanel {

FormH3::FormH3(QWidget* parent) : QDialog(parent), list(new QListWidget)
{
    setObjectName(QStringLiteral("FormH3"));
    setWindowTitle(texts::columnOrderTitle);
    list->setObjectName(QStringLiteral("lstOrder"));
    list->setDragDropMode(QAbstractItemView::InternalMove);
    for (const qint16 column : App().ColumnLayout) {
        auto* item = new QListWidgetItem(ColumnText(column), list);
        item->setData(Qt::UserRole, column);
        item->setFlags(item->flags() & ~Qt::ItemIsDropEnabled); // a row goes between others, never onto one
    }
    list->setCurrentRow(0);

    auto* buttons = new QVBoxLayout;
    const std::array captions{texts::moveFirst, texts::moveUp, texts::moveDown, texts::moveLast};
    for (std::size_t i = 0; i < captions.size(); ++i)
        AddMoveButton(*buttons, static_cast<int>(i), captions[i]);
    buttons->addStretch(1);
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(ok);
    auto* cancel = new QPushButton(texts::buttonCancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(cancel);
    connect(this, &QDialog::accepted, this, [this] { WriteBack(); });

    auto* row = new QHBoxLayout(this);
    row->addWidget(list, 1);
    row->addLayout(buttons);
}

bool FormH3::ChangeOrder(QWidget* parent)
{
    return FormH3(parent).exec() == QDialog::Accepted;
}

void FormH3::AddMoveButton(QVBoxLayout& column, int index, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QStringLiteral("cmdMove_%1").arg(index));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, index] { Move(index); });
    column.addWidget(button);
}

void FormH3::Move(int index)
{
    const int from = list->currentRow();
    const int last = list->count() - 1;
    const std::array targets{0, from - 1, from + 1, last};
    const int to = targets.at(static_cast<std::size_t>(index));
    if (from < 0 || to < 0 || to > last)
        return;
    list->insertItem(to, list->takeItem(from));
    list->setCurrentRow(to);
}

void FormH3::WriteBack()
{
    for (int i = 0; i < list->count(); ++i)
        App().ColumnLayout.at(static_cast<std::size_t>(i)) =
            static_cast<qint16>(list->item(i)->data(Qt::UserRole).toInt());
}

} // namespace korvanel
