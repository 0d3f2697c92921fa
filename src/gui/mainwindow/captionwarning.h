#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace parlex::gui {

// The blinking caption that tells that a script's speech file was not found: the
// window's title and the warning take turns every 700 ms, three warnings in all,
// and the title is left bare. A new warning starts the count afresh.
class CaptionWarning : public QObject {
    Q_OBJECT
public:
    CaptionWarning(QWidget* window, QString bareTitle);

    void start(const QString& missingName);
    void tick();
    bool isRunning() const { return timer_.isActive(); }

private:
    QWidget* window_;
    QString bare_;
    QString name_;
    int count_ = 0;
    QTimer timer_;
};

} // namespace parlex::gui
