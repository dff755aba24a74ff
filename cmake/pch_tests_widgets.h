#pragma once
#include "pch_widgets.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>
