// What a test program measures, told at its end in lines "figure NAME VALUE". scripts/trust reads
// them.
#pragma once
#include <string>

namespace vstring_test {

// The figure with this name, at first 0.
double& figure(const std::string& name);

}  // namespace vstring_test
