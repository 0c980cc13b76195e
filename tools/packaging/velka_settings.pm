# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

use strict;
use warnings;
use Debian::Debhelper::Dh_Lib;

insert_after('dh_install', 'dh_velkasettings');

1;
