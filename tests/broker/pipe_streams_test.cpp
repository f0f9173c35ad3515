#include "broker/pipe_streams.h"

#include <memory>

#include <gtest/gtest.h>

using namespace pcellBrokerClient;

namespace {

/// Our two kinds of streams at the ends of one pipe.
class PipeStreams : public testing::Test {
protected:
    PipeStreams() {
        platform::PipeEnd reading;
        platform::PipeEnd writing;
        EXPECT_TRUE(platform::createPipe(reading, writing));
        input = std::make_unique<PipeInput>(stream(reading, platform::PipeDirection::read));
        output = std::make_unique<PipeOutput>(stream(writing, platform::PipeDirection::write));
    }

    static std::FILE* stream(platform::PipeEnd& end, platform::PipeDirection direction) {
        platform::StreamDescriptor descriptor = platform::openDescriptor(end, direction);
        return platform::openStream(descriptor, direction);
    }

    std::unique_ptr<PipeInput> input;
    std::unique_ptr<PipeOutput> output;
};

} // namespace

TEST_F(PipeStreams, NothingIsSentBeforeTheFlush) {
    output->sputc('a');
    output->sputn("bc", 2);
    EXPECT_EQ(input->in_avail(), 0);
    EXPECT_EQ(output->pubsync(), 0);
    EXPECT_GT(input->in_avail(), 0);
    EXPECT_EQ(input->sbumpc(), 'a');
    EXPECT_EQ(input->in_avail(), 2);
    EXPECT_EQ(input->sbumpc(), 'b');
    EXPECT_EQ(input->sbumpc(), 'c');
    EXPECT_EQ(input->in_avail(), 0);
    output.reset();
    EXPECT_EQ(input->in_avail(), -1);
}

// What the reading end gets at once was written at once, as far as the buffer reaches.
TEST_F(PipeStreams, ARequestIsOneBlock) {
    for (int i = 0; i < 1000; ++i) {
        output->sputc('x');
        output->sputn("yz", 2);
    }
    EXPECT_EQ(output->pubsync(), 0);
    EXPECT_EQ(input->sgetc(), 'x');
    EXPECT_EQ(input->in_avail(), 3000);
}

TEST_F(PipeStreams, EveryByteIsKept) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
    }
    output->sputn(bytes.data(), 256);
    output->pubsync();
    for (int i = 0; i < 256; ++i) {
        ASSERT_EQ(input->sbumpc(), i);
    }
}

TEST_F(PipeStreams, EndWithTheOtherEnd) {
    output->sputc('a');
    output->pubsync();
    output.reset();
    EXPECT_EQ(input->sbumpc(), 'a');
    EXPECT_EQ(input->sbumpc(), EOF);
    EXPECT_EQ(input->sbumpc(), EOF);
}

TEST_F(PipeStreams, WhatNobodyReadsCannotBeFlushed) {
    input.reset();
    EXPECT_EQ(output->pubsync(), 0);
    output->sputc('a');
    EXPECT_EQ(output->pubsync(), -1);
}
