// Does one piece of work, the same instructions each time, for a program that counts them. Nothing
// in it depends on the time or on luck.
//
// Usage: tervale-counts TASK [SIZE]; without arguments the names of the tasks.

#include "Counted.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tervale {

// The function stays one, so that it can be told by its name.
extern "C" [[gnu::noinline]] void countedWork(const std::function<void()>& work) {
    work();
}

} // namespace tervale

using namespace tervale;

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    for (const auto tasks : {countedReadings(), countedPanes()}) {
        for (const CountedTask& task : tasks) {
            if (argumentCount < 2) {
                std::printf("%s %zu\n", task.name, task.size);
            } else if (task.name == std::string_view(arguments[1])) {
                task.run(argumentCount > 2 ? std::strtoul(arguments[2], nullptr, 10) : task.size);
                return 0;
            }
        }
    }
    return argumentCount < 2 ? 0 : 2;
}
