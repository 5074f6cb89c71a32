10 ' An array that holds just the picture will do; one element less is refused.
20 DIM A%(3):A%(0)=8:A%(1)=1:A%(2)=255:PUT@(0,0),A%,PSET:PRINT POINT(0,0)
30 DIM B%(4):B%(0)=8:B%(1)=2:B%(2)=255:PUT@(0,8),B%,PSET:PRINT POINT(0,8)
40 DIM C%(2):C%(0)=8:C%(1)=1:PUT@(0,0),C%
