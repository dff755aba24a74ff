#pragma once
// The fonts of a job's styles, in dots of a twip: unhinted, so that a line is as wide on any device.
#include "platform/paper/jobpages.h"

#include <QFont>

namespace velm {

QFont jobFont(const JobStyle& style);

} // namespace velm
