#include "tests/support/number_texts.h"

#include "tests/support/extremes.h"

namespace korrin::test {
namespace {

using Kind = DecodingError::Kind;

std::string zeros(std::size_t count) { return std::string(count, '0'); }

}  // namespace

std::vector<IntegerNotation> acceptedIntegers() {
  return {
      IntegerNotation{"Zero", "0", 0},
      IntegerNotation{"NegativeZero", "-0", 0},
      IntegerNotation{"ZeroWithFraction", "0.000", 0},
      IntegerNotation{"ZeroWithExponent", "-0.0e5", 0},
      IntegerNotation{"ZeroWithHugeExponent", "0e999999999999999999999", 0},
      IntegerNotation{"ZeroWithHugeNegativeExponent", "0.0E-999999999999999999999", 0},
      IntegerNotation{"One", "1e0", 1},
      IntegerNotation{"OneFromTen", "10e-1", 1},
      IntegerNotation{"OneFromTenth", "0.1E+1", 1},
      IntegerNotation{"OneWithZeros", "1.000", 1},
      IntegerNotation{"OneFromManyZerosBehindThePoint", "0." + zeros(400) + "1e401", 1},
      IntegerNotation{"OneFromManyZerosBeforeThePoint", "1" + zeros(400) + "e-400", 1},
      IntegerNotation{"ExponentWithLeadingZeros", "12e0000000000000000000002", 1200},
      IntegerNotation{"FractionTakenUpByExponent", "12.34e2", 1234},
      IntegerNotation{"FractionAndMoreTakenUp", "-12.34e4", -123400},
      IntegerNotation{"FifteenDigits", "-999999999999999", -999999999999999},
      IntegerNotation{"SixteenDigits", "9999999999999999", 9999999999999999},
      IntegerNotation{"Highest", "9223372036854775807", highest},
      IntegerNotation{"HighestWithFraction", "9223372036854775807.0", highest},
      IntegerNotation{"HighestScaled", "9.223372036854775807e18", highest},
      IntegerNotation{"HighestTimesTen", "92233720368547758070e-1", highest},
      IntegerNotation{"HighestWithZeroExponent", "9223372036854775807E-0", highest},
      IntegerNotation{"Lowest", "-9223372036854775808", lowest},
      IntegerNotation{"LowestScaled", "-9.223372036854775808E+18", lowest},
      IntegerNotation{"LowestTimesHundred", "-922337203685477580800e-2", lowest},
      IntegerNotation{"LowestWithFraction", "-9223372036854775808.00", lowest},
  };
}

std::vector<IntegerRefused> refusedIntegers() {
  return {
      IntegerRefused{"Half", "0.5", Kind::typeMismatch},
      IntegerRefused{"Tenth", "1e-1", Kind::typeMismatch},
      IntegerRefused{"ElevenTenths", "11e-1", Kind::typeMismatch},
      IntegerRefused{"FractionJustBelowTheHighest", "9223372036854775806.5", Kind::typeMismatch},
      IntegerRefused{"FractionOfAHugeNumber", "123456789012345678901234567890.5",
                     Kind::typeMismatch},
      IntegerRefused{"SmallestDouble", "4.9e-324", Kind::typeMismatch},
      IntegerRefused{"HugeNegativeExponent", "1e-999999999999999999999", Kind::typeMismatch},
      IntegerRefused{"JustAbove", "9223372036854775808", Kind::dataCorrupted},
      IntegerRefused{"JustAboveWithFraction", "9223372036854775808.0", Kind::dataCorrupted},
      IntegerRefused{"JustAboveScaled", "9.223372036854775808e18", Kind::dataCorrupted},
      IntegerRefused{"JustAboveTimesHundred", "922337203685477580800e-2", Kind::dataCorrupted},
      IntegerRefused{"JustBelow", "-9223372036854775809", Kind::dataCorrupted},
      IntegerRefused{"TwoToThe64", "18446744073709551616", Kind::dataCorrupted},
      IntegerRefused{"TwoToThe64AndOne", "18446744073709551617", Kind::dataCorrupted},
      IntegerRefused{"TwentyNines", "99999999999999999999", Kind::dataCorrupted},
      IntegerRefused{"TenToThe19", "1e19", Kind::dataCorrupted},
      IntegerRefused{"HugeExponent", "1e999999999999999999999", Kind::dataCorrupted},
      IntegerRefused{"NegativeHugeExponent", "-1E+99999999999999999", Kind::dataCorrupted},
      IntegerRefused{"ManyDigits", "1" + zeros(1000), Kind::dataCorrupted},
  };
}

std::vector<DoubleNotation> acceptedDoubles() {
  return {
      DoubleNotation{"Zero", "0", 0.0},
      DoubleNotation{"NegativeZero", "-0", -0.0},
      DoubleNotation{"NegativeZeroWithFraction", "-0.0", -0.0},
      DoubleNotation{"NegativeZeroWithExponent", "-0e7", -0.0},
      DoubleNotation{"ZeroWithHugeExponent", "0e999999999999999999999", 0.0},
      DoubleNotation{"Tenth", "0.1", 0.1},
      DoubleNotation{"TenthAsExponent", "1E-1", 0.1},
      DoubleNotation{"Underflow", "1e-400", 0.0},
      DoubleNotation{"NegativeUnderflow", "-1e-400", -0.0},
      DoubleNotation{"HugeNegativeExponent", "1e-999999999999999999999", 0.0},
      DoubleNotation{"Smallest", "4.9406564584124654e-324", smallest},
      DoubleNotation{"JustAboveHalfTheSmallest", "2.4703282292062328e-324", smallest},
      DoubleNotation{"JustBelowHalfTheSmallest", "2.4703282292062327e-324", 0.0},
      DoubleNotation{"Largest", "1.7976931348623157e308", largest},
      DoubleNotation{"RoundedDownToTheLargest", "1.7976931348623158e308", largest},
      DoubleNotation{"LargestAsDigits", "1" + zeros(308), 1e308},
      DoubleNotation{"IntegerBeyond64Bits", "123456789012345680000", 123456789012345680000.0},
      DoubleNotation{"FifteenDigits", "-999999999999999", -999999999999999.0},
      DoubleNotation{"SixteenDigits", "9007199254740993", 9007199254740992.0},
      DoubleNotation{"TieBrokenFarBehind", "9007199254740993." + zeros(700) + "1",
                     9007199254740994.0},
      DoubleNotation{"ThousandDigits", "0." + std::string(1000, '3'), 1.0 / 3},
      DoubleNotation{"ThousandZerosTakenBack", "1" + zeros(1000) + "e-1000", 1.0},
      DoubleNotation{"ThousandZerosMadeUpFor", "0." + zeros(1000) + "1e1001", 1.0},
  };
}

std::vector<std::string> refusedDoubles() {
  return {"1e400",          "-1e400", "1.7976931348623159e308",
          "1" + zeros(309), "2e308",  "1e999999999999999999999"};
}

}  // namespace korrin::test
