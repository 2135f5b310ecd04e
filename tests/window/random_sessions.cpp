// Compares random sessions with a window and without: random_sessions FIRST_SEED COUNT STEPS. A session in which the
// two answer otherwise is told by its shortest form that still does, and makes the exit status 1.
#include <cstdlib>
#include <iostream>

#include <QApplication>

#include "window/random_user.h"

namespace {

using Requests = std::vector<rulemesh::Json>;

// Takes out what is not needed, in ever smaller pieces.
Requests Shortest(Requests requests)
{
    for (std::size_t piece = requests.size() / 2; piece > 0; piece /= 2) {
        for (std::size_t from = 0; from + piece <= requests.size();) {
            Requests fewer(requests.begin(), requests.begin() + static_cast<std::ptrdiff_t>(from));
            fewer.insert(fewer.end(), requests.begin() + static_cast<std::ptrdiff_t>(from + piece), requests.end());
            if (rulemesh::DifferenceWithAWindow(fewer).empty())
                from += piece;
            else
                requests = std::move(fewer);
        }
    }
    return requests;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 4) {
        std::cerr << "random_sessions FIRST_SEED COUNT STEPS\n";
        return 2;
    }
    const auto first = static_cast<unsigned>(std::atoi(argv[1]));
    const auto count = static_cast<unsigned>(std::atoi(argv[2]));
    const int steps = std::atoi(argv[3]);
    int differences = 0;
    for (unsigned seed = first; seed < first + count; ++seed) {
        const Requests requests = rulemesh::RandomSession(seed, steps);
        if (rulemesh::DifferenceWithAWindow(requests).empty())
            continue;
        ++differences;
        const Requests shortest = Shortest(requests);
        std::cout << "seed " << seed << '\n';
        for (const rulemesh::Json& request : shortest)
            std::cout << "  " << request.dump().substr(0, 200) << '\n';
        std::cout << rulemesh::DifferenceWithAWindow(shortest).substr(0, 2000) << "\n\n";
    }
    std::cout << count << " sessions, " << differences << " with a difference\n";
    return differences == 0 ? 0 : 1;
}
