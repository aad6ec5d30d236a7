// Sends bytes: one start bit, eight data bits with the lowest first, one stop bit.
module uart_tx #(
    parameter DIVISOR = 434
) (
    input  wire       clk,
    input  wire       rst,
    input  wire [7:0] data,
    input  wire       valid,
    output wire       ready,
    output wire       tx
);

    localparam COUNT_BITS = $clog2(DIVISOR);

    reg [COUNT_BITS-1:0] baud_count;
    reg [3:0]            bits_left;
    reg [8:0]            shift;

    wire bit_done = baud_count == DIVISOR - 1;

    assign ready = bits_left == 0;
    assign tx    = shift[0];

    always @(posedge clk)
        if (rst) begin
            baud_count <= 0;
            bits_left  <= 0;
            shift      <= 9'h1ff;
        end else if (ready) begin
            baud_count <= 0;
            if (valid) begin
                shift     <= {data, 1'b0};
                bits_left <= 10;
            end
        end else if (bit_done) begin
            baud_count <= 0;
            shift      <= {1'b1, shift[8:1]};
            bits_left  <= bits_left - 4'd1;
        end else begin
            baud_count <= baud_count + 1'b1;
        end

endmodule
