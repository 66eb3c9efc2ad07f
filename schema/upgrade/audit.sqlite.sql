-- SPDX-License-Identifier: MIT
-- VnAudit: who has done what, where and when. Needed where clsSettings has Audit = True. Times are UTC. May be run twice.
CREATE TABLE IF NOT EXISTS [VnAudit] (
    [Code] INTEGER PRIMARY KEY AUTOINCREMENT,
    [At] TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
    [UserCode] INTEGER,
    [UserName] VARCHAR(100) COLLATE NOCASE,
    [PC] VARCHAR(50),
    [WinUser] VARCHAR(50),
    [Action] VARCHAR(50) NOT NULL,
    [Subject] VARCHAR(255) COLLATE NOCASE,
    [Before] TEXT,
    [After] TEXT
);
CREATE INDEX IF NOT EXISTS [VnAuditAt] ON [VnAudit] ([At]);
