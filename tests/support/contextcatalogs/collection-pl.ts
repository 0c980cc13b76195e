<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<dependencies>
    <dependency catalog="menu-pl"/>
    <dependency catalog="compressed-pl"/>
</dependencies>
</TS>
