10 A$="XYZ":MID$(A$,1,1)="ｱBC":PRINT A$
