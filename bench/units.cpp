// A conversion as a widget asks for it at each sample, by two keywords, beside UDUNITS with the converter in hand.
#include <benchmark/benchmark.h>
#include <ostrel/units.h>
#include <udunits2.h>

namespace {

char speed[] = "RPM";
char hertz[] = "HZ";
char torque[] = "NM";
char customaryTorque[] = "LBF-FT";
char pressure[] = "KPA";
char gaugePressure[] = "PSIG";

void convert(benchmark::State& state, char* from, char* to) {
    double value = 100;
    double result = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        if (unitsConvert(value, from, &result, to) != 0) {
            state.SkipWithError("not converted");
            break;
        }
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK_CAPTURE(convert, shortKeywords, speed, hertz);
BENCHMARK_CAPTURE(convert, longerKeywords, torque, customaryTorque);
BENCHMARK_CAPTURE(convert, withAnOffset, pressure, gaugePressure);
BENCHMARK_CAPTURE(convert, toTheSame, torque, torque);

void converterInHand(benchmark::State& state) {
    ut_set_error_message_handler(ut_ignore);
    ut_system* units = ut_read_xml(nullptr);
    ut_unit* from = ut_parse(units, "N.m", UT_ASCII);
    ut_unit* to = ut_parse(units, "lbf.ft", UT_ASCII);
    cv_converter* converter = from && to ? ut_get_converter(from, to) : nullptr;
    if (!converter) {
        state.SkipWithError("the UDUNITS database cannot be read");
        return;
    }
    double value = 100;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        benchmark::DoNotOptimize(cv_convert_double(converter, value));
    }
    cv_free(converter);
    ut_free(to);
    ut_free(from);
    ut_free_system(units);
}
BENCHMARK(converterInHand)->Name("floor");

}  // namespace

BENCHMARK_MAIN();
