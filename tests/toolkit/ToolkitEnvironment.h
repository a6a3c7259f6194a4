// Begins and ends the toolkit around all tests of a program that includes this.
#pragma once

#include <gtest/gtest.h>

#include "toolkit/Toolkit.h"

class ToolkitEnvironment : public testing::Environment {
 public:
  void SetUp() override { InitToolkit(GetModuleHandleW(nullptr)); }
  void TearDown() override { TermToolkit(); }
};

inline testing::Environment* const kToolkitEnvironment = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);
