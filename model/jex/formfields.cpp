#include "model/jex/formfields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

namespace JEX {

QHash<QString, QWidget *> fieldWidgets(const QWidget *form)
{
    QHash<QString, QWidget *> widgets;
    for (QWidget *widget : form->findChildren<QWidget *>()) {
        const QVariant field = widget->property("field");
        if (field.isValid())
            widgets.insert(field.toString(), widget);
    }
    return widgets;
}

void showValue(QWidget *widget, const QVariant &value)
{
    if (QCheckBox *box = qobject_cast<QCheckBox *>(widget)) {
        box->setChecked(value.toBool());
    } else if (QSpinBox *box = qobject_cast<QSpinBox *>(widget)) {
        box->setValue(value.toInt());
    } else if (QComboBox *box = qobject_cast<QComboBox *>(widget)) {
        const int index = box->findData(value);
        box->setCurrentIndex(index >= 0 ? index : box->currentIndex());
    }
}

QVariant shownValue(const QWidget *widget)
{
    if (const QComboBox *box = qobject_cast<const QComboBox *>(widget))
        return box->itemData(box->currentIndex());
    return widget->property(qobject_cast<const QCheckBox *>(widget) ? "checked" : "value");
}

void reportFields(QWidget *form, FieldKind kind)
{
    for (QWidget *widget : fieldWidgets(form)) {
        const bool isFlag = qobject_cast<QCheckBox *>(widget);
        if (isFlag != (kind == FlagField))
            continue;
        const char *change = isFlag                             ? SIGNAL(toggled(bool))
                             : qobject_cast<QSpinBox *>(widget) ? SIGNAL(valueChanged(int))
                                                                : SIGNAL(currentIndexChanged(int));
        QObject::connect(widget, change, form, SIGNAL(modified()));
    }
}

} // namespace JEX
