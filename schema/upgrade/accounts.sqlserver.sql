-- SPDX-License-Identifier: MIT
-- VnUser: what VnDesk 1.1 keeps of users beside [User]: the hash of the password, wrong passwords, locks.
-- Needed where clsSettings has PasswordScheme = vnPasswordPbkdf2 or LockAfter > 0. Times are UTC. May be run twice.
IF OBJECT_ID(N'VnUser') IS NULL
CREATE TABLE [VnUser] (
    [UserCode] INT NOT NULL PRIMARY KEY,
    [PasswordHash] NVARCHAR(200) NULL,
    [Failed] INT NOT NULL DEFAULT 0,
    [FirstAt] DATETIME NULL,
    [LockedUntil] DATETIME NULL,
    [LastAt] DATETIME NULL,
    [LastPC] NVARCHAR(50) NULL,
    [MustChange] INT NOT NULL DEFAULT 0
);
GO
