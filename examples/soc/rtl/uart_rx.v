// Receives what uart_tx sends, sampling each bit in its middle.
module uart_rx #(
    parameter DIVISOR = 434
) (
    input  wire       clk,
    input  wire       rst,
    input  wire       rx,
    output reg  [7:0] data,
    output reg        valid,
    output reg        framing_error
);

    localparam COUNT_BITS = $clog2(DIVISOR);

    reg [2:0]            rx_sync;
    reg [COUNT_BITS-1:0] baud_count;
    reg [3:0]            bit_index;
    reg                  busy;

    wire line   = rx_sync[2];
    wire sample = baud_count == 0;

    always @(posedge clk)
        if (rst) begin
            rx_sync       <= 3'b111;
            baud_count    <= 0;
            bit_index     <= 0;
            busy          <= 1'b0;
            data          <= 8'h00;
            valid         <= 1'b0;
            framing_error <= 1'b0;
        end else begin
            rx_sync       <= {rx_sync[1:0], rx};
            valid         <= 1'b0;
            framing_error <= 1'b0;
            if (!busy) begin
                bit_index  <= 0;
                baud_count <= DIVISOR / 2;
                busy       <= !line;
            end else if (!sample) begin
                baud_count <= baud_count - 1'b1;
            end else begin
                baud_count <= DIVISOR - 1;
                bit_index  <= bit_index + 4'd1;
                if (bit_index == 0) begin
                    busy <= !line;
                end else if (bit_index <= 8) begin
                    data <= {line, data[7:1]};
                end else begin
                    busy          <= 1'b0;
                    valid         <= line;
                    framing_error <= !line;
                end
            end
        end

endmodule
