#include "ui/frm_pause.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/endings.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

frmPause::frmPause(QWidget* parent) : QDialog(parent) {
    setWindowTitle("Paused");
    setModal(true);
    setFont(LabelFont());

    auto* heading = new QLabel("Download Paused", this);
    QFont bold = LabelFont();
    bold.setBold(true);
    heading->setFont(bold);
    auto* explanation =
        new QLabel("No new files will start downloading while program is paused.", this);
    explanation->setWordWrap(true);
    auto* command1 = new QPushButton("Click to resume...", this);
    command1->setObjectName("Command1");
    command1->setDefault(true);
    connect(command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [] { bas_Connections::Resume(); });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Twips(360), Twips(300), Twips(360), Twips(300));
    column->setSpacing(Twips(210));
    column->addWidget(heading, 0, Qt::AlignHCenter);
    column->addWidget(explanation);
    column->addWidget(command1, 0, Qt::AlignHCenter);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace ui
