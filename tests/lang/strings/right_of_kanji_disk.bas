10 PRINT "[";RIGHT$("あA",1);"]";RIGHT$("あA",3);"]";RIGHT$("あA",4);"]";RIGHT$("Aあ",2);"]";RIGHT$("Aあ",3);"]";RIGHT$("Aあ",6);"]";RIGHT$("Aあ",7);"]"
