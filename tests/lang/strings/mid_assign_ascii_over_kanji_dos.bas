10 A$="aあb":MID$(A$,2,2)="xy":PRINT A$
