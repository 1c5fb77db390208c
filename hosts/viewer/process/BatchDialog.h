#pragma once

#include "process/Batch.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace vostel::viewer {

// Asks what is to be done to the pictures of a folder, and does it in a thread while the window is free: with
// progress, pause and stop, and a list of what failed.
class BatchDialog : public QDialog {
    Q_OBJECT

public:
    explicit BatchDialog(QWidget* parent = nullptr);
    ~BatchDialog() override;    // stops what runs

    void AddStep(const Routine& routine, const std::vector<double>& values);
    bool IsRunning() const { return Run != nullptr; }

    void reject() override;    // the first one stops what runs

private:
    struct Shared;

    QWidget*  MakePath(QLineEdit*& field, const char* name, const QString& title,
                       const std::function<QString(const QString& now)>& browse);
    QWidget*  MakeChain();
    void      AskStep(const Routine& routine);
    QString   WhyNot(const BatchPlan& plan) const;    // a sentence; empty when it can begin
    BatchPlan Plan() const;
    void      Start();
    void      ShowProgress();
    void      ShowEnd(BatchResult& result);
    void      ShowState();

    QLineEdit*              Source;
    QLineEdit*              Pattern;
    QListWidget*            Chain;
    QLineEdit*              Target;
    QLineEdit*              Session;
    QLineEdit*              Table;
    QProgressBar*           Bar;
    QLabel*                 Told;
    QListWidget*            Failures;
    QPushButton*            StartButton;
    QPushButton*            PauseButton;
    QPushButton*            StopButton;
    QTimer                  Often;
    std::shared_ptr<Shared> Run;          // null when nothing runs
    QString                 TablePath;    // of the run
};

}
