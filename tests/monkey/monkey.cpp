// Works a designer by random raw input and tells where what it shows is not what it holds, where the toolkit warns, and
// where the program dies or hangs; a finding is reduced to the shortest list of actions.
//
//   monkey [--seed N] [--actions N] [--process N] OBJECT    OBJECT is a file, or "wide" for one of thousands of fields
//   monkey [--seed N] --replay N,N,... OBJECT               does only the actions with these numbers
//   monkey --except REGEX ...                               leaves out differences that are known already
//   monkey --tell ...                                       prints each action before it is done
//
// The actions of a seed are done by processes of `--process` actions each.

#include <iostream>
#include <numeric>
#include <sstream>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include "monkey/action.h"
#include "monkey/reduction.h"
#include "monkey/session.h"
#include "monkey/stage.h"

namespace rulemesh::monkey {

namespace {

constexpr int Found = 3; // the exit status of a process with a finding

struct Arguments {
    QString Object;
    std::uint64_t Seed = 1;
    int Actions = 10000;
    int PerProcess = 2000;
    QString Replayed; // numbers, or @ and the name of a file with them
    QString Except;
    bool Tell = false;
    bool Inside = false; // this process does the actions itself
};

std::optional<Arguments> ArgumentsOf(const QStringList& words)
{
    Arguments arguments;
    for (qsizetype at = 1; at < words.size(); ++at) {
        const QString& word = words[at];
        const QString value = words.value(at + 1);
        if (word == QLatin1String("--inside") || word == QLatin1String("--tell")) {
            (word == QLatin1String("--tell") ? arguments.Tell : arguments.Inside) = true;
            continue;
        }
        if (!word.startsWith(QLatin1String("--"))) {
            arguments.Object = word;
            continue;
        }
        ++at;
        if (word == QLatin1String("--seed"))
            arguments.Seed = value.toULongLong();
        else if (word == QLatin1String("--actions"))
            arguments.Actions = value.toInt();
        else if (word == QLatin1String("--process"))
            arguments.PerProcess = std::max(1, value.toInt());
        else if (word == QLatin1String("--replay"))
            arguments.Replayed = value;
        else if (word == QLatin1String("--except"))
            arguments.Except = value;
        else
            return {};
    }
    return arguments.Object.isEmpty() ? std::nullopt : std::optional(arguments);
}

QByteArray ObjectOf(const QString& name)
{
    if (name == QLatin1String("wide"))
        return WideObject();
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("can't read %s", qPrintable(name));
    return file.readAll();
}

std::vector<int> NumbersOf(const QString& list)
{
    std::vector<int> numbers;
    for (const QString& number : list.split(QLatin1Char(','), Qt::SkipEmptyParts))
        numbers.push_back(number.toInt());
    return numbers;
}

QByteArray ListOf(const std::vector<int>& numbers)
{
    QByteArray list;
    for (const int number : numbers)
        list += (list.isEmpty() ? "" : ",") + QByteArray::number(number);
    return list;
}

// Standard output carries a dot for each action that was done, and then the finding.
int DoInside(const Arguments& arguments)
{
    QFile list(arguments.Replayed.mid(1));
    if (!list.open(QIODevice::ReadOnly))
        return 1;
    const Errand errand{ObjectOf(arguments.Object), arguments.Seed, NumbersOf(QString::fromLatin1(list.readAll())),
                        arguments.Except.toStdString(), arguments.Tell};
    const std::optional<Finding> finding = DoErrand(errand, 1);
    if (!finding)
        return 0;
    std::cout << finding->Sentence << std::flush;
    std::_Exit(Found);
}

// What a process of its own finds, and how many actions it did until then.
struct Outcome {
    int Done = 0;
    std::optional<std::string> Finding;
};

Outcome Play(const Arguments& arguments, const std::vector<int>& numbers)
{
    QTemporaryFile list;
    if (!list.open() || list.write(ListOf(numbers)) < 0 || !list.flush())
        qFatal("no room for the list of actions");
    QProcess process;
    QStringList words = {QStringLiteral("--inside"),
                         QStringLiteral("--seed"),
                         QString::number(arguments.Seed),
                         QStringLiteral("--replay"),
                         QStringLiteral("@") + list.fileName(),
                         arguments.Object};
    if (!arguments.Except.isEmpty())
        words << QStringLiteral("--except") << arguments.Except;
    if (arguments.Tell) {
        words << QStringLiteral("--tell");
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }
    process.start(QCoreApplication::applicationFilePath(), words);
    process.waitForFinished(-1);
    const QByteArray output = process.readAllStandardOutput();
    Outcome outcome;
    while (outcome.Done < output.size() && output[outcome.Done] == '.')
        ++outcome.Done;
    if (process.exitStatus() != QProcess::NormalExit)
        outcome.Finding = "the process died: signal " + std::to_string(process.exitCode()) + "\n" +
                          process.readAllStandardError().right(4000).toStdString();
    else if (process.exitCode() == Found)
        outcome.Finding = output.mid(outcome.Done).toStdString();
    else if (process.exitCode() != 0)
        outcome.Finding = "the process ended: status " + std::to_string(process.exitCode()) + "\n" +
                          process.readAllStandardError().right(4000).toStdString();
    return outcome;
}

void Report(const Arguments& arguments, std::vector<int> numbers, const std::string& finding)
{
    std::cout << "FOUND with seed " << arguments.Seed << " on " << arguments.Object.toStdString() << ", behind "
              << numbers.size() << " actions:\n"
              << finding << "reducing ..." << std::endl;
    std::string last = finding;
    numbers = Reduce(std::move(numbers), KindOf(finding), [&](const std::vector<int>& some) {
        std::optional<std::string> found = Play(arguments, some).Finding;
        if (found && KindOf(*found) == KindOf(finding))
            last = *found;
        return found;
    });
    std::cout << "shortest: --seed " << arguments.Seed << " --replay " << ListOf(numbers).constData() << "\n";
    for (const int number : numbers)
        std::cout << "    " << Describe(ActionOf(arguments.Seed, number)).toStdString() << "\n";
    std::cout << last << std::endl;
}

int DoAll(const Arguments& arguments)
{
    int done = 0;
    int findings = 0;
    const std::vector<int> replayed = NumbersOf(arguments.Replayed);
    const int end = replayed.empty() ? arguments.Actions : 1;
    for (int from = 0; from < end; from += arguments.PerProcess) {
        std::vector<int> numbers = replayed;
        if (numbers.empty()) {
            numbers.resize(static_cast<std::size_t>(std::min(arguments.PerProcess, end - from)));
            std::iota(numbers.begin(), numbers.end(), from);
        }
        const Outcome outcome = Play(arguments, numbers);
        done += outcome.Done;
        if (!outcome.Finding)
            continue;
        ++findings;
        numbers.resize(std::min(numbers.size(), static_cast<std::size_t>(outcome.Done) + 1));
        Report(arguments, numbers, *outcome.Finding);
    }
    std::cout << done << " actions, " << findings << " findings" << std::endl;
    return findings == 0 ? 0 : 1;
}

} // namespace

} // namespace rulemesh::monkey

int main(int count, char** words)
{
    using namespace rulemesh::monkey;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList list;
    for (int word = 0; word < count; ++word)
        list.append(QString::fromLocal8Bit(words[word]));
    const std::optional<Arguments> arguments = ArgumentsOf(list);
    if (!arguments) {
        std::cerr << "usage: monkey [--seed N] [--actions N] [--process N] [--replay N,N,...] [--except REGEX] "
                     "[--tell] OBJECT\n";
        return 2;
    }
    if (arguments->Inside) {
        const QApplication application(count, words);
        QApplication::setQuitOnLastWindowClosed(false);
        return DoInside(*arguments);
    }
    const QCoreApplication application(count, words);
    return DoAll(*arguments);
}
