#pragma once
// A program that sets type and has no display.
#include <QCoreApplication>

#include <memory>

namespace velm {

/// The toolkit's application with its fonts, on no display; to be made before anything else of the toolkit.
std::unique_ptr<QCoreApplication> headlessApplication(int& argc, char** argv);

} // namespace velm
