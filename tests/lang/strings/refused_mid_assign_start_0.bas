10 A$="ABC":MID$(A$,0,1)="X"
