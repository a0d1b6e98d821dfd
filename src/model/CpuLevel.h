#pragma once
// The processor features this build was compiled to use. A build for a newer
// processor level (the TESSALY_CPU_LEVEL option: popcnt, tzcnt and wider
// instructions) would die on an older processor with an illegal instruction;
// both programs check first and say so instead. The portable default needs
// nothing, so a distribution's package runs everywhere.

#include <string>

namespace tessaly {

/// Empty when this processor has every feature the build relies on; otherwise
/// the message to print before quitting.
inline std::string missingCpuFeatures(const char* program) {
  std::string missing;
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
  __builtin_cpu_init();
#if defined(__POPCNT__)
  if (!__builtin_cpu_supports("popcnt")) missing += " popcnt";
#endif
#if defined(__BMI__)
  if (!__builtin_cpu_supports("bmi")) missing += " bmi";
#endif
#if defined(__BMI2__)
  if (!__builtin_cpu_supports("bmi2")) missing += " bmi2";
#endif
#if defined(__AVX2__)
  if (!__builtin_cpu_supports("avx2")) missing += " avx2";
#endif
#endif
  if (missing.empty()) return missing;
  return std::string(program) + ": this copy was built for a newer processor; this one lacks" + missing +
         ". Build it with -DTESSALY_CPU_LEVEL=portable.\n";
}

}  // namespace tessaly
