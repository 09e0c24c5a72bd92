// The step runner of the routines that go on after a failure.
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/runtime/steps.h"

namespace TabulonLib12 {
namespace {

TEST(Steps, ASucceedingStepLeavesNothingPending) {
    Steps steps;
    int ran = 0;
    EXPECT_TRUE(steps([&] { ++ran; }));
    EXPECT_EQ(ran, 1);
    EXPECT_FALSE(steps.Pending());
    EXPECT_EQ(steps.Description(), "");
}

TEST(Steps, AFailingStepIsSkippedAndTheNextOneRuns) {
    Steps steps;
    int ran = 0;
    EXPECT_FALSE(steps([&] {
        throw Error::TypeMismatch();
        ++ran;
    }));
    EXPECT_TRUE(steps([&] { ++ran; }));
    EXPECT_EQ(ran, 1);
    EXPECT_TRUE(steps.Pending());
    EXPECT_EQ(steps.Failure()->number(), 13);
}

TEST(Steps, TheFirstFailureStaysPending) {
    Steps steps;
    steps([] { throw Error::OutOfBounds(); });
    steps([] { throw Error::Overflow(); });
    EXPECT_EQ(steps.Failure()->number(), 9);
    EXPECT_EQ(steps.Description(), "Subscript out of range");
    steps.Clear();
    EXPECT_FALSE(steps.Pending());
    steps([] { throw Error::Overflow(); });
    EXPECT_EQ(steps.Failure()->number(), 6);
}

TEST(Steps, RunnersAreIndependent) {
    Steps first, second;
    first([] { throw Error::TypeMismatch(); });
    EXPECT_TRUE(first.Pending());
    EXPECT_FALSE(second.Pending());
}

TEST(Steps, AnExhaustedMemoryIsAFailureOfTheStep) {
    Steps steps;
    EXPECT_FALSE(steps([] { throw std::bad_alloc(); }));
    EXPECT_TRUE(steps.RanOutOfMemory());
    EXPECT_EQ(steps.Failure()->number(), 7);
    EXPECT_EQ(steps.Failure()->kind(), ErrorKind::OutOfMemory);
    // It is remembered even behind an earlier failure.
    Steps later;
    later([] { throw Error::Overflow(); });
    later([] { throw std::bad_alloc(); });
    EXPECT_TRUE(later.RanOutOfMemory());
    EXPECT_EQ(later.Failure()->number(), 6);
}

TEST(Steps, OtherExceptionsPass) {
    Steps steps;
    EXPECT_THROW(steps([] { throw std::logic_error("not a failure of a statement"); }), std::logic_error);
    EXPECT_FALSE(steps.Pending());
}

}  // namespace
}  // namespace TabulonLib12
