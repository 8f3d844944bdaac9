#include "tervale-agent/ToolkitMessages.h"

#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>

using namespace tervale;
using namespace std::chrono_literals;

namespace {

class ToolkitMessagesTest : public testing::Test {
  protected:
    std::string text() const {
        EXPECT_TRUE(log.drain(20s));
        std::string all(100'000, ' ');
        const ssize_t length = ::pread(::fileno(file.get()), all.data(), all.size(), 0);
        EXPECT_GE(length, 0);
        all.resize(static_cast<std::size_t>(length));
        return all;
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), &std::fclose};
    AgentLog log{::fileno(file.get()), AgentLog::Level::info, AgentLog::Form::terminal};
};

/// What the toolkit tells while nobody else listens.
std::string heardBefore; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void hear(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    heardBefore += message.toStdString();
}

} // namespace

TEST_F(ToolkitMessagesTest, GoToTheLogAtTheirLevel) {
    const ToolkitMessages messages(log);
    qDebug("Of no interest.");
    qInfo("Begun.");
    qWarning("Odd: a\x1B[2J");
    qCritical("Failed.");
    EXPECT_EQ(text(), "tervale-agent: Begun.\ntervale-agent: warning: Odd: a [2J\n"
                      "tervale-agent: error: Failed.\n");
}

TEST_F(ToolkitMessagesTest, ComeFromAnyThread) {
    const ToolkitMessages messages(log);
    std::thread first([] { qInfo("One."); });
    std::thread second([] { qInfo("Two."); });
    first.join();
    second.join();
    const std::string all = text();
    EXPECT_NE(all.find("tervale-agent: One.\n"), std::string::npos) << all;
    EXPECT_NE(all.find("tervale-agent: Two.\n"), std::string::npos) << all;
}

TEST_F(ToolkitMessagesTest, GoWhereTheyWentBeforeOnceItIsGone) {
    const QtMessageHandler before = qInstallMessageHandler(&hear);
    {
        const ToolkitMessages messages(log);
        qInfo("While it lives.");
    }
    qInfo("Afterwards.");
    qInstallMessageHandler(before);
    EXPECT_EQ(text(), "tervale-agent: While it lives.\n");
    EXPECT_EQ(heardBefore, "Afterwards.");
}
