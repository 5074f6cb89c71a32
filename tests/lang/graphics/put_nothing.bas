10 ' A stored picture of no width or height draws nothing; its two numbers are all that it needs.
20 CLS 3:DIM A%(1),B%(5),C%(5):A%(0)=0:A%(1)=5:B%(0)=5:B%(1)=-1:C%(0)=-8:C%(1)=-8
30 PUT@(0,0),A%,PRESET:PUT@(0,0),B%,PRESET:PUT@(0,0),C%,PRESET:PRINT POINT(0,0);POINT(0);POINT(1)
