#include "SaveAllFileDialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QLayout>

using namespace Qt::StringLiterals;

SaveAllFileDialog::SaveAllFileDialog(QWidget *parent) :
    ImageFileDialog(parent),
    autosaveLabel(new QLabel(tr("Autosave:"), this)),
    useAsBasename(new QCheckBox(tr("Use as basename for untitled images"), this))
{
    autosaveLabel->setObjectName("autosaveLabel"_L1);
    useAsBasename->setObjectName("useAsBasename"_L1);
    useAsBasename->setChecked(true);

    if (QLayout *const rows = layout()) {
        rows->addWidget(autosaveLabel);
        rows->addWidget(useAsBasename);
    }
}

bool SaveAllFileDialog::usesNameAsBasename() const
{
    return useAsBasename->isChecked();
}
