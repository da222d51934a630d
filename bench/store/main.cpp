#include "Benches.h"

int main() {
    bench::Samples samples;
    bench::Figures figures("Store");
    bench::measureOpening(samples, figures);
    bench::measureFinding(samples, figures);
    bench::measureList(samples, figures);
    bench::measureCompaction(samples, figures);
    return figures.print();
}
