#pragma once

class QWidget;

namespace parlex::gui {

// What a screen reader or a UI test reads of a widget that draws its own text (the
// help text, the elided sentence and remark, the status bars' panels and counters):
// a static text whose name and value are the text it shows now. Such a widget has a
// `text` property, calls markAsStaticText once it is made and announceTextChange
// whenever its text changes. Any widget added later that draws text does the same.
void markAsStaticText(QWidget* widget);
void announceTextChange(QWidget* widget);

} // namespace parlex::gui
