10 A$="ABC":MID$(A$,1,-1)="X"
