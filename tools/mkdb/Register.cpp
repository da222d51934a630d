#include "Register.h"

#include "ClientMaker.h"
#include "ModelTables.h"
#include "ReturnTables.h"
#include "StaffMaker.h"

namespace mkdb {

namespace {

/// Streams of chance below the clients', which are numbered from 1.
constexpr std::uint64_t generalStream = 0;

} // namespace

void makeRegister(const RegisterPlan& plan, const Vocabulary& words,
                  const std::vector<CodeList>& lists, RowSink& sink) {
    Random random(plan.seed, generalStream);
    const std::vector<Employee> staff = makeStaff(PeopleMaker(words), random);
    for (const Employee& employee : staff)
        writeEmployee(employee, sink);
    writeFilledReturn(random, sink);

    ClientMaker maker(words, lists, staff, plan.today);
    int number = 0;
    for (const AgeSlot& slot : planAges(plan.clients, random)) {
        ++number;
        Random own(plan.seed, number);
        writeClient(maker.make(slot, number, own), sink);
    }
}

} // namespace mkdb
