#include "platform/pipe.h"

#include "platform/process.h"
#include "platform/system_error.h"

#include <gtest/gtest.h>

#include <optional>

using namespace platform;

namespace {

/// A pipe within this process, with a stream over each end.
class Pipe {
public:
    Pipe() {
        PipeEnd reading;
        PipeEnd writing;
        EXPECT_TRUE(createPipe(reading, writing));
        open(input, reading, PipeDirection::read);
        open(output, writing, PipeDirection::write);
    }

    std::optional<PipeStream> input;
    std::optional<PipeStream> output;

private:
    static void open(std::optional<PipeStream>& stream, PipeEnd& end, PipeDirection direction) {
        StreamDescriptor descriptor = openDescriptor(end, direction);
        stream.emplace(openStream(descriptor, direction));
        EXPECT_FALSE(descriptor);
        EXPECT_FALSE(end);
    }
};

} // namespace

TEST(PipeEnd, IsToldInSixteenDigits) {
    PipeEnd end(0x2A4);
    EXPECT_EQ(pipeEndText(end), "00000000000002A4");
    end.release();
    PipeEnd read = pipeEndFromText("00000000000002A4");
    EXPECT_EQ(read.release(), 0x2A4);
    for (const char* wrong :
         {"", "2A4", "00000000000002G4", "00000000000002A40", " 0000000000002A4"})
        EXPECT_FALSE(pipeEndFromText(wrong)) << wrong;
}

TEST(Pipe, GivesWhatHasArrivedUntilTheWriterIsGone) {
    Pipe pipe;
    EXPECT_EQ(pipe.input->inputState(), PipeInputState::empty);
    EXPECT_TRUE(pipe.output->write("abc\n\r\n\x1a", 7));
    EXPECT_EQ(pipe.input->inputState(), PipeInputState::ready);
    char bytes[100] = {};
    EXPECT_EQ(pipe.input->read(bytes, sizeof bytes), 7U);
    EXPECT_EQ(std::string(bytes, 7), "abc\n\r\n\x1a");
    EXPECT_EQ(pipe.input->inputState(), PipeInputState::empty);
    EXPECT_TRUE(pipe.output->write("d", 1));
    pipe.output.reset();
    EXPECT_EQ(pipe.input->inputState(), PipeInputState::ready);
    EXPECT_EQ(pipe.input->read(bytes, sizeof bytes), 1U);
    EXPECT_EQ(pipe.input->inputState(), PipeInputState::ended);
    EXPECT_EQ(pipe.input->read(bytes, sizeof bytes), 0U);
    EXPECT_EQ(pipe.input->read(bytes, sizeof bytes), 0U);
}

TEST(Pipe, RefusesWhatNobodyCanRead) {
    Pipe pipe;
    pipe.input.reset();
    EXPECT_FALSE(pipe.output->write("a", 1));
    EXPECT_FALSE(pipe.output->write("a", 1));
}

TEST(Pipe, LeavesNoHandleBehind) {
    { Pipe pipe; }
    const std::size_t before = openHandleCount();
    for (int i = 0; i < 50; ++i) {
        PipeEnd reading;
        PipeEnd writing;
        ASSERT_TRUE(createPipe(reading, writing));
        const PipeEnd copy = inheritableCopy(writing);
        ASSERT_TRUE(copy);
        StreamDescriptor unused = openDescriptor(reading, PipeDirection::read);
        Pipe other;
    }
    EXPECT_EQ(openHandleCount(), before);
}

TEST(Pipe, KeepsTheErrorOfAFailedCall) {
    EXPECT_FALSE(inheritableCopy(PipeEnd()));
    PipeEnd nobodys(0x7FFFFFF0);
    EXPECT_FALSE(inheritableCopy(nobodys));
    const SystemError error = lastSystemError();
    nobodys.release();
    EXPECT_NE(error.code(), 0);
    { Pipe pipe; }
    setLastSystemError(error);
    EXPECT_EQ(lastSystemError(), error);
    EXPECT_NE(lastSystemErrorText(), "");
    setLastSystemError(SystemError(0));
    EXPECT_EQ(lastSystemErrorText(), "");
}
