10 A$="ab":A$=A$+A$:A$=A$:PRINT A$
