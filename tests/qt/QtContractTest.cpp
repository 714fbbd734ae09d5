#include "tests/qt/QtBench.h"

namespace ald {
namespace {

INSTANTIATE_TEST_SUITE_P(Qt, DesktopContract,
                         testing::Values(DesktopMaker{"Qt",
                                                      [] { return std::make_unique<QtBench>(); }}));

}  // namespace
}  // namespace ald
