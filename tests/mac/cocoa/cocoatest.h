// The application in which the Cocoa tests run, and the check that nothing of ours stays alive.
#pragma once

#import <Cocoa/Cocoa.h>
#include <gtest/gtest.h>

#include <functional>

// Every test has a pool of its own; when it has gone, no object of the plug-in's classes is alive.
class CocoaTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  static int alive(const char* className);  // objects of a Cocoa class
  void drainPool();                         // and start a new one

  // Gives the application the events that arrive until the condition holds; false after the seconds
  // are up.
  static bool pump(const std::function<bool()>& until, double seconds = 8);
  static void pumpFor(double seconds);

 private:
  NSAutoreleasePool* pool = nil;
};

// An action that a timer repeats in every mode, a modal loop's included, until it returns true.
void repeatUntilDone(std::function<bool()> action);
