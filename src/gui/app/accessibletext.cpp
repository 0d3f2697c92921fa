#include "gui/app/accessibletext.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QVariant>
#include <QWidget>

namespace parlex::gui {
namespace {

constexpr char kStaticText[] = "parlexStaticText";

class StaticTextAccessible : public QAccessibleWidget {
public:
    explicit StaticTextAccessible(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::StaticText) {}

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name && !widget()->accessibleName().isEmpty())
            return widget()->accessibleName();
        if (t == QAccessible::Name || t == QAccessible::Value)
            return widget()->property("text").toString();
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* staticTextFactory(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && widget->property(kStaticText).toBool())
        return new StaticTextAccessible(widget);
    return nullptr;
}

} // namespace

void markAsStaticText(QWidget* widget) {
    static const bool installed = [] {
        QAccessible::installFactory(staticTextFactory);
        return true;
    }();
    (void)installed;
    widget->setProperty(kStaticText, true);
}

void announceTextChange(QWidget* widget) {
    if (!QAccessible::isActive())
        return; // nobody listens: the text changes on every move of the mouse
    // A label tells of its new name itself.
    if (!qobject_cast<QLabel*>(widget)) {
        QAccessibleEvent named(widget, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&named);
    }
    QAccessibleValueChangeEvent valued(widget, widget->property("text"));
    QAccessible::updateAccessibility(&valued);
}

} // namespace parlex::gui
