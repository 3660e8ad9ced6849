#include <gtest/gtest.h>

#include "foundation/cStack.h"

namespace scriv {
namespace {

// The error a call raises, for checking its message and source.
template<typename Call>
ScrivError ErrorOf(Call call)
{
    try {
        call();
    } catch (const ScrivError& error) {
        return error;
    }
    ADD_FAILURE() << "no ScrivError raised";
    return ScrivError(0, "", "");
}

TEST(cStack, PushAndPopAreLastInFirstOut)
{
    cStack stack;
    EXPECT_TRUE(stack.IsEmpty());
    stack.Push("a");
    stack.Push("b");
    stack.Push("c");
    EXPECT_EQ(stack.StackCount(), 3u);
    EXPECT_EQ(stack.Top(), "c");
    EXPECT_EQ(stack.Pop(), "c");
    EXPECT_EQ(stack.Pop(), "b");
    EXPECT_EQ(stack.Top(), "a");
    EXPECT_EQ(stack.Pop(), "a");
    EXPECT_TRUE(stack.IsEmpty());
}

TEST(cStack, PoppingAnEmptyStackFails)
{
    cStack stack;
    ScrivError error = ErrorOf([&] { stack.Pop(); });
    EXPECT_EQ(error.Description(), "Stack is empty");
    EXPECT_EQ(error.Source(), "cStack::Pop");
    stack.Push("x");
    stack.Clear();
    EXPECT_EQ(ErrorOf([&] { stack.Pop(); }).Description(), "Stack is empty");
    EXPECT_EQ(stack.Top(), "");
    EXPECT_EQ(stack.Current(), "");
    EXPECT_EQ(stack.CursorPosition(), 0u);
}

TEST(cStack, CursorWalksDownAndUp)
{
    cStack stack;
    stack.Push("a");
    stack.Push("b");
    stack.Push("c");
    EXPECT_EQ(stack.CursorPosition(), 3u);
    EXPECT_EQ(stack.Current(), "c");
    EXPECT_TRUE(stack.Down());
    EXPECT_TRUE(stack.Down());
    EXPECT_EQ(stack.Current(), "a");
    EXPECT_FALSE(stack.Down());
    EXPECT_EQ(stack.CursorPosition(), 1u);
    stack.Up();
    EXPECT_EQ(stack.Current(), "b");
    EXPECT_EQ(stack.Top(), "c");
    stack.Up();
    ScrivError error = ErrorOf([&] { stack.Up(); });
    EXPECT_EQ(error.Description(), "Already top");
    EXPECT_EQ(error.Source(), "cStack::Up");
    EXPECT_EQ(stack.CursorPosition(), 3u);
}

TEST(cStack, UpAndDownOnAnEmptyStack)
{
    cStack stack;
    EXPECT_FALSE(stack.Down());
    EXPECT_EQ(ErrorOf([&] { stack.Up(); }).Description(), "Already top");
}

TEST(cStack, PushMovesTheCursorToTheTop)
{
    cStack stack;
    stack.Push("a");
    stack.Push("b");
    stack.Down();
    stack.Push("c");
    EXPECT_EQ(stack.CursorPosition(), 3u);
    EXPECT_EQ(stack.Current(), "c");
}

TEST(cStack, PopKeepsTheCursorOnItsItem)
{
    cStack stack;
    stack.Push("a");
    stack.Push("b");
    stack.Push("c");
    stack.Down();
    stack.Down();
    EXPECT_EQ(stack.Pop(), "c");
    EXPECT_EQ(stack.Current(), "a");
    stack.Up();
    EXPECT_EQ(stack.Pop(), "b");
    EXPECT_EQ(stack.CursorPosition(), 1u);
    EXPECT_EQ(stack.Current(), "a");
}

TEST(cStack, ItemsAreNumberedFromTheBottom)
{
    cStack stack;
    stack.Push("a");
    stack.Push("b");
    stack.Push("c");
    EXPECT_EQ(stack.Item(1), "a");
    EXPECT_EQ(stack.Item(3), "c");
    EXPECT_EQ(ErrorOf([&] { stack.Item(0); }).Source(), "cStack::Item");
    EXPECT_EQ(ErrorOf([&] { stack.Item(4); }).Source(), "cStack::Item");
}

TEST(cStack, RemoveItemKeepsTheCursorOnItsItem)
{
    cStack stack;
    for (const char* text : { "a", "b", "c", "d" })
        stack.Push(text);
    stack.Down(); // on "c"
    stack.RemoveItem(1);
    EXPECT_EQ(stack.Current(), "c");
    EXPECT_EQ(stack.CursorPosition(), 2u);
    stack.RemoveItem(3); // "d", above the cursor
    EXPECT_EQ(stack.Current(), "c");
    stack.RemoveItem(2); // the cursor's own item: the new top takes its place
    EXPECT_EQ(stack.CursorPosition(), 1u);
    EXPECT_EQ(stack.Current(), "b");
    stack.RemoveItem(1);
    EXPECT_TRUE(stack.IsEmpty());
    EXPECT_EQ(stack.CursorPosition(), 0u);
    EXPECT_EQ(ErrorOf([&] { stack.RemoveItem(1); }).Source(), "cStack::RemoveItem");
}

}  // namespace
}  // namespace scriv
