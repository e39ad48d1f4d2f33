#include "catalogue/ArretCourse.h"

#include <mutex>

namespace {

std::mutex verrou;
std::stop_source course;

}  // namespace

std::stop_token CommencerCourse()
{
    const std::lock_guard garde(verrou);
    course = {};
    return course.get_token();
}

void ArreterCourse()
{
    const std::lock_guard garde(verrou);
    course.request_stop();
}
