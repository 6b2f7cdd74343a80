#include <gtest/gtest.h>
TEST(Placeholder, None) {}
