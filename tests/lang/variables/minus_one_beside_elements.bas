10 ' The -1 in front of an element's subscripts is an operand, not their end.
20 DIM A(3,3):A(1,2)=5:A(2,1)=7:PRINT -1+A(1,2);-1*A(2,1)
