#include "monkey/session.h"

#include <iostream>
#include <regex>

#include <sys/time.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "monkey/hands.h"
#include "support/mirror.h"

namespace rulemesh::monkey {

namespace {

constexpr unsigned MostSecondsOfWork = 30; // for one action
constexpr unsigned MostSeconds = 600;

std::vector<std::string>& Warnings()
{
    static std::vector<std::string> warnings;
    return warnings;
}

// What the off-screen platform can't do, and where the hands themselves point, is no fault of the designer.
void KeepWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    const bool ours = text.startsWith(QLatin1String("This plugin does not support")) ||
                      text.startsWith(QLatin1String("Mouse event at "));
    if (type != QtDebugMsg && type != QtInfoMsg && !ours)
        Warnings().push_back(text.toStdString());
}

// An action that never ends is ended: one that works by the processor's time, as the machine may be busy with other
// things, and one that only waits by the clock.
void LimitAction()
{
    const itimerval work{{}, {MostSecondsOfWork, 0}};
    setitimer(ITIMER_PROF, &work, nullptr);
    alarm(MostSeconds);
}

class Session {
public:
    Session(const Errand& errand, int progress)
        : errand_(errand), progress_(progress), stage_(errand.Object, RootOf(errand.Object))
    {
    }

    std::optional<Finding> Run()
    {
        QApplication::processEvents();
        Check(-1);
        while (HasMore())
            Step(nullptr);
        return finding_;
    }

private:
    [[nodiscard]] bool HasMore() const { return !finding_ && next_ < errand_.Numbers.size(); }

    // One action. `box` is the box or form that is worked, none for the window itself.
    void Step(const QWidget* box)
    {
        const int number = errand_.Numbers[next_++];
        LimitAction();
        if (errand_.Tell)
            std::cerr << number << " " << Describe(ActionOf(errand_.Seed, number)).toStdString() << std::endl;
        hands_.Do(ActionOf(errand_.Seed, number), [this](QWidget& box) { WorkBox(box); });
        if (progress_ >= 0 && write(progress_, ".", 1) != 1)
            progress_ = -1;
        // Behind a box that was closed the control has not gone on yet.
        if ((box == nullptr || box == InFront()) && !finding_)
            Check(number);
        if (box == nullptr)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    [[nodiscard]] static QWidget* InFront()
    {
        QWidget* const popup = QApplication::activePopupWidget();
        return popup != nullptr ? popup : QApplication::activeModalWidget();
    }

    // Out of the box in front, without keeping what it holds.
    static void Leave()
    {
        QWidget* const box = InFront();
        auto* const question = qobject_cast<QMessageBox*>(box);
        if (question != nullptr && question->button(QMessageBox::No) != nullptr)
            question->button(QMessageBox::No)->click();
        else if (box != nullptr)
            box->close();
    }

    // The control waits for the box; the actions go on in it until it is gone.
    void WorkBox(QWidget& waitedFor)
    {
        const QPointer<QWidget> box = &waitedFor;
        Check(errand_.Numbers[next_ - 1]);
        while (HasMore() && box != nullptr && box->isVisible())
            Step(box);
        // What is left can ask in its turn.
        QTimer leaving;
        QObject::connect(&leaving, &QTimer::timeout, &leaving, Leave);
        leaving.start(1);
        for (int tries = 0; !HasMore() && InFront() != nullptr && tries < 20; ++tries) {
            Leave();
            QApplication::processEvents();
        }
    }

    void Check(int number)
    {
        std::vector<std::string> sentences = DifferencesEverywhere();
        for (const std::string& warning : std::exchange(Warnings(), {}))
            sentences.push_back("warning of the toolkit: " + warning);
        const std::regex except(errand_.Except);
        std::erase_if(sentences, [&](const std::string& sentence) {
            return !errand_.Except.empty() && std::regex_search(sentence, except);
        });
        if (sentences.empty())
            return;
        finding_ = Finding{number, {}};
        for (const std::string& sentence : sentences)
            finding_->Sentence += sentence + "\n";
    }

    const Errand& errand_;
    int progress_;
    std::size_t next_ = 0;
    std::optional<Finding> finding_;
    MonkeyStage stage_;
    Hands hands_{stage_};
};

} // namespace

std::optional<Finding> DoErrand(const Errand& errand, int progress)
{
    qInstallMessageHandler(KeepWarning);
    Session session(errand, progress);
    return session.Run();
}

} // namespace rulemesh::monkey
