-- SPDX-License-Identifier: MIT
-- VnAudit: who has done what, where and when. Needed where clsSettings has Audit = True. Times are UTC. Run twice, the second
-- run is refused (the table is there) and changes nothing.
CREATE TABLE [VnAudit] (
    [Code] COUNTER NOT NULL CONSTRAINT [VnAuditKey] PRIMARY KEY,
    [At] DATETIME NOT NULL,
    [UserCode] LONG,
    [UserName] TEXT(100),
    [PC] TEXT(50),
    [WinUser] TEXT(50),
    [Action] TEXT(50) NOT NULL,
    [Subject] TEXT(255),
    [Before] MEMO,
    [After] MEMO
);
CREATE INDEX [VnAuditAt] ON [VnAudit] ([At]);
