`timescale 1ns / 1ps
module clockgen(input clk_pin, input rst_pin, output clk, output locked);
  wire clk_raw, clk_fb;
  PLL_BASE #(.MULTIPLY(8), .DIVIDE(4)) pll (
    .clkin(clk_pin), .rst(rst_pin), .clkfb(clk_fb), .clkfbout(clk_fb), .clkout0(clk_raw), .clkout1(),
    .locked(locked));
  BUFG clk_buffer (.I(clk_raw), .O(clk));
  // synopsys translate_off
  reg [31:0] cycles = 0;
  always @(posedge clk) cycles = cycles + 1;
  initial $display("clock model of revision %d", cycles);
  // synopsys translate_on
endmodule
