#include "StaffMaker.h"

namespace mkdb {

namespace {

struct Post {
    int function;
    bool internal;
    bool qualified;
};

constexpr Post posts[] = {
    {1, true, true},  {2, true, true},  {2, true, true},   {2, true, false}, {3, true, true},
    {3, false, true}, {4, true, true},  {4, false, true},  {5, true, true},  {6, false, true},
    {7, true, true},  {8, true, false}, {8, false, false},
};
constexpr int womenPercent = 80;

/// Pedagogues and psychologists, by the codes of c_funkcie.
bool worksWithClients(int function) {
    return function >= 2 && function <= 5;
}

} // namespace

std::vector<Employee> makeStaff(const PeopleMaker& people, Random& random) {
    KeyMaker keys;
    std::vector<Employee> staff;
    for (const Post& post : posts) {
        Employee employee;
        employee.woman = random.percent(womenPercent);
        employee.firstName = people.firstName(employee.woman, random);
        const Surname& surname = people.surname(random);
        employee.surname = employee.woman ? surname.woman : surname.man;
        employee.key = *keys.make({employee.surname, employee.firstName});
        employee.function = post.function;
        employee.keepsRecords = worksWithClients(post.function);
        employee.internal = post.internal;
        employee.qualified = post.qualified;
        staff.push_back(employee);
    }
    return staff;
}

} // namespace mkdb
