#include "widgets/spoken.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace {

class SpokenWidget : public QAccessibleWidget {
public:
    explicit SpokenWidget(QWidget *widget)
        : QAccessibleWidget(widget, QAccessible::Graphic)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const auto *spoken = dynamic_cast<const Spoken *>(widget());
        return kind == QAccessible::Name && spoken ? spoken->spokenText() : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *interfaceOf(const QString &, QObject *object)
{
    return dynamic_cast<Spoken *>(object) ? new SpokenWidget(qobject_cast<QWidget *>(object)) : nullptr;
}

} // namespace

Spoken::Spoken()
{
    QAccessible::installFactory(interfaceOf); // which is there once, however often it is told
}
