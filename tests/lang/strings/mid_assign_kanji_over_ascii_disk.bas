10 A$="ABCDE":MID$(A$,2,3)="あ":PRINT A$
