#include "toolbox/ArgList.h"

#include "engine/api/VelArgList.h"

#include <gtest/gtest.h>

using velmora::toolbox::ArgList;

TEST(ArgList, HandsItsArgumentsToTheEngineInOrder)
{
    long whole = 0;
    double real = 0;
    ArgList args;
    args.appendInt("Int", 1);
    args.appendDouble("Double", 2);
    args.appendString("Text", "3");
    args.appendArbParam("Word", 4);
    args.appendArbParamPtr("WordPtr", &whole);
    args.appendDoublePtr("DoublePtr", &real);
    const char* const expected[] = {"Int", "Double", "Text", "Word", "WordPtr", "DoublePtr"};
    ASSERT_EQ(6, VelArgListCount(args.getRef()));
    for (int i = 0; i < 6; ++i)
        EXPECT_STREQ(expected[i], VelArgListNameAt(args.getRef(), i));
    long* target = nullptr;
    ASSERT_TRUE(VelArgListGetArbParamPtr(args.getRef(), "WordPtr", &target));
    *target = 9;
    EXPECT_EQ(9, whole);
}

TEST(ArgList, KeepsItsListWhenCleared)
{
    ArgList args;
    VelArgList* const list = args.getRef();
    args.appendInt("Int", 1);
    args.clear();
    EXPECT_EQ(list, args.getRef());
    EXPECT_EQ(0, VelArgListCount(list));
}
