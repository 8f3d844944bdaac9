#include "Platform/FileDescriptor.h"
#include "Platform/LineWriter.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>

using namespace tervale;
using namespace std::chrono_literals;

namespace {

/// A pipe that nobody reads but the test.
class LineWriterTest : public testing::Test {
  protected:
    LineWriterTest() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        reading = FileDescriptor(ends[0]);
        // A thread that still waits for the reader may have it in use.
        writing = ends[1];
    }
    /// Fills the pipe.
    void fill() const {
        const int flags = ::fcntl(writing, F_GETFL);
        ::fcntl(writing, F_SETFL, flags | O_NONBLOCK);
        const std::string much(4096, '.');
        while (::write(writing, much.data(), much.size()) > 0 || ::write(writing, ".", 1) > 0) {
        }
        ::fcntl(writing, F_SETFL, flags);
    }
    static std::unique_ptr<LineWriter> writerTo(int file) {
        return std::make_unique<LineWriter>(
            file, [](int lost) { return std::to_string(lost) + " lost\n"; });
    }
    /// What is read until it ends so.
    std::string readUntil(const std::string& end) const {
        std::string all;
        std::array<char, 4096> part{};
        while (!all.ends_with(end)) {
            const ssize_t length = ::read(reading.number(), part.data(), part.size());
            if (length <= 0)
                break;
            all.append(part.data(), static_cast<std::size_t>(length));
        }
        return all.substr(all.find_first_not_of('.'));
    }

    FileDescriptor reading;
    int writing = -1;
};

} // namespace

TEST_F(LineWriterTest, WritesLinesInOrder) {
    const auto lines = writerTo(writing);
    for (int i = 0; i < 3; ++i)
        lines->write(std::to_string(i) + "\n");
    EXPECT_TRUE(lines->drain(120s));
    EXPECT_EQ(readUntil("2\n"), "0\n1\n2\n");
}

TEST_F(LineWriterTest, WaitsForNoReaderAndTellsWhatWasLostOnceThereIsOne) {
    fill();
    const auto lines = writerTo(writing);
    lines->write("first\n");
    constexpr std::size_t many = 10'000;
    for (std::size_t i = 0; i < many; ++i)
        lines->write("x\n");
    EXPECT_FALSE(lines->drain(10ms)) << "nobody has read";
    const std::string all = readUntil(" lost\n");
    EXPECT_TRUE(lines->drain(120s));
    const auto count = [&](const std::string& text) {
        std::size_t number = 0;
        for (std::size_t at = all.find(text); at != std::string::npos; at = all.find(text, at + 1))
            ++number;
        return number;
    };
    EXPECT_TRUE(all.starts_with("first\n"));
    EXPECT_GE(count("x\n"), LineWriter::mostWaiting - 1);
    EXPECT_EQ(count("lost\n"), 1U) << all;
    EXPECT_TRUE(all.ends_with("\n" + std::to_string(many - count("x\n")) + " lost\n")) << all;
}

TEST_F(LineWriterTest, EndsThoughNobodyReads) {
    fill();
    auto lines = writerTo(writing);
    lines->write("x\n");
    const auto began = std::chrono::steady_clock::now();
    lines.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - began, 2s);
    // It would have been written if the process had lived on.
    EXPECT_EQ(readUntil("x\n"), "x\n");
}

TEST_F(LineWriterTest, OutlivesAReaderThatIsGone) {
    const auto lines = writerTo(writing);
    reading.close();
    lines->write("x\n");
    EXPECT_TRUE(lines->drain(120s)) << "a signal would have ended the process";
}

TEST_F(LineWriterTest, WritesInTheEndWhatStillWaits) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    for (int i = 0; i < 50; ++i)
        writerTo(::fileno(file.get()))->write("x\n");
    EXPECT_EQ(::lseek(::fileno(file.get()), 0, SEEK_END), 100);
}
