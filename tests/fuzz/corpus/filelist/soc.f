// the sources of the example
+incdir+rtl
+define+WIDTH=8+FAST
-top soc
rtl/soc_types.sv rtl/soc_pkg.sv
rtl/soc.v "rtl/uart.v" rtl/uart_rx.v \
  rtl/uart_tx.v
/* the rest */
-v rtl/fifo.v   # a library file
-y rtl +libext+.v+.sv
-sv
