#pragma once
#include "pch_core.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>
