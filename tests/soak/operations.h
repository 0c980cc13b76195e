// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <memory>
#include <vector>

class ApplicationServices;
class Page;
class SoakWorld;

using Pages = std::vector<std::unique_ptr<Page>>;

enum class Mode { Usual, Chaos };

/// Runs a random operation, such as can happen while programs run. With chaos, hosts interfere with their models,
/// services reply with errors, and there are no descriptors now and then.
void operate(SoakWorld *world, ApplicationServices *services, Pages *pages, Mode mode);
