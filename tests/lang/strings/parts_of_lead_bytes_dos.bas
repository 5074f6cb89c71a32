10 A$=STRING$(4,"あ"):B$=LEFT$(A$,1)+"]"+MID$(A$,3,2)+"]"+RIGHT$(A$,1):PRINT KLEN(A$,2);LEN(KEXT$(A$,0));LEN(MID$(A$,200));LEN(LEFT$(A$,2))
