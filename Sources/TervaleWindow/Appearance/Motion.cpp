#include "TervaleWindow/Appearance/Motion.h"

#include <QCoreApplication>

#include <utility>

namespace tervale {

namespace {

std::function<bool()>& systemQuery() {
    static std::function<bool()> query;
    return query;
}

} // namespace

bool reducedMotion() {
    const std::function<bool()>& query = systemQuery();
    return query && query();
}

void askForReducedMotion(std::function<bool()> query) {
    systemQuery() = std::move(query);
    // What it asks may not outlive the toolkit.
    static const bool ends = [] {
        qAddPostRoutine([] { systemQuery() = nullptr; });
        return true;
    }();
    static_cast<void>(ends);
}

} // namespace tervale
