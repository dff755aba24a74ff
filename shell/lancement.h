#pragma once
// One run of the program, from its doors to its exit code: what a start, a run-time error, a signal and the end of the
// desktop's session make of it.
#include "shell/programme.h"

#include <functional>

namespace velm {

class Application;

/// `pret` gets the program before it starts. The result is the exit code of the process; an error that ends the program
/// is said in one box and ends the process itself, with code 1.
int lance(Application& application, const OptionsProgramme& options, const MondeExterieur& monde,
          const std::function<void(Programme&)>& pret = {});

} // namespace velm
