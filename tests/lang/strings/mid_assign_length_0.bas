10 A$="ABC":MID$(A$,1,0)="X":PRINT A$
